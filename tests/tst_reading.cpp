#include "reading.h"

#include <QtTest>

static Reading parse(const QString &text)
{
    Reading reading;
    return parseReading(text, &reading) == ReadingFault::None ? reading : Reading();
}

static ReadingClass classOf(int adc1, int adc2, int adc3)
{
    Reading reading;
    reading.adc = { adc1, adc2, adc3 };
    return classify(reading);
}

class TestReading : public QObject
{
    Q_OBJECT

private slots:
    void thePayloadHasTheCountedCharacters()
    {
        QCOMPARE(parse("7:2,1,2,399,9").payload, QString("2,1,2,3"));
        QCOMPARE(parse("99:2,1,2,3:9").payload, QString("2,1,2,3"));
        QCOMPARE(parse("-3:2,1,2,3").payload, QString("2,1,2,3"));
    }

    void fieldsAreDecimalIntegers()
    {
        const Reading numbers = parse("99: 3,\t010\n,-4,4095,7");
        QCOMPARE(numbers.keyLine, 3);
        QVERIFY(numbers.adc == (std::array<int, 3>{ 10, -4, 4095 }));
        const Reading others = parse("99:x,1.5,0x1F,2147483648");
        QVERIFY(!others.payload.isEmpty());
        QCOMPARE(others.keyLine, 0);
        QVERIFY(others.adc == (std::array<int, 3>{ 0, 0, 0 }));
    }

    void otherTextsAreRefused()
    {
        Reading reading;
        QVERIFY(parseReading("2,1200,4094,4094", &reading) == ReadingFault::NoColon);
        QVERIFY(parseReading("99:2,1200,4094", &reading) == ReadingFault::TooFewFields);
        QVERIFY(parseReading("99::2,1,2,3", &reading) == ReadingFault::TooFewFields);
        QVERIFY(parseReading("x:2,1,2,3", &reading) == ReadingFault::TooFewFields);
    }

    void theValuesTellSamplesFromReleases()
    {
        QVERIFY(classOf(0, 0, 0) == ReadingClass::Sample);
        QVERIFY(classOf(4094, 4094, 4094) == ReadingClass::Sample);
        QVERIFY(classOf(4095, 4095, 4095) == ReadingClass::Release);
        QVERIFY(classOf(9, 4095, 4095) == ReadingClass::Invalid);
        QVERIFY(classOf(4095, 4095, 9) == ReadingClass::Invalid);
        QVERIFY(classOf(4096, 4096, 4096) == ReadingClass::Invalid);
        QVERIFY(classOf(9, 9, -1) == ReadingClass::Invalid);
    }
};

QTEST_APPLESS_MAIN(TestReading)
#include "tst_reading.moc"
