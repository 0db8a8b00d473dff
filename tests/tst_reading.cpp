#include "reading.h"

#include <QtTest>

using Values = std::array<int, channelCount>;
Q_DECLARE_METATYPE(Values)
Q_DECLARE_METATYPE(ReadingClass)
Q_DECLARE_METATYPE(ReadingFault)

class TestReading : public QObject
{
    Q_OBJECT

private slots:
    void thePayloadHasTheCountedCharacters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("payload");
        QTest::newRow("the rest of a longer text") << QString("7:2,1,2,399,9") << "2,1,2,3";
        QTest::newRow("a fifth field is cut") << QString("9:2,1,2,3,77") << "2,1,2,3,7";
        QTest::newRow("a count past the end") << QString("99:2,1,2,3") << "2,1,2,3";
        QTest::newRow("a negative count") << QString("-3:2,1,2,3") << "2,1,2,3";
        QTest::newRow("a second colon") << QString("99:2,1,2,3:9") << "2,1,2,3";
    }
    void thePayloadHasTheCountedCharacters()
    {
        QFETCH(QString, text);
        Reading reading;
        QVERIFY(parseReading(text, &reading) == ReadingFault::None);
        QTEST(reading.payload, "payload");
    }

    void fieldsAreDecimalIntegers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("keyLine");
        QTest::addColumn<Values>("values");
        QTest::newRow("numbers") << QString("99:2,1200,-4,4095") << 2
                                 << Values{ { 1200, -4, 4095 } };
        QTest::newRow("leading zeros") << QString("99:2,010,09,3") << 2 << Values{ { 10, 9, 3 } };
        QTest::newRow("white space") << QString("99: 3,\t1,2\t,\n5") << 3 << Values{ { 1, 2, 5 } };
        QTest::newRow("not a number") << QString("99:x,1.5,,0x1F") << 0 << Values{ { 0, 0, 0 } };
        QTest::newRow("beyond int") << QString("99:3,2147483648,4,5") << 3 << Values{ { 0, 4, 5 } };
    }
    void fieldsAreDecimalIntegers()
    {
        QFETCH(QString, text);
        Reading reading;
        QVERIFY(parseReading(text, &reading) == ReadingFault::None);
        QTEST(reading.keyLine, "keyLine");
        QTEST(reading.adc, "values");
    }

    void otherTextsAreRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<ReadingFault>("fault");
        QTest::newRow("empty") << QString("") << ReadingFault::NoColon;
        QTest::newRow("no colon") << QString("2,1200,4094,4094") << ReadingFault::NoColon;
        QTest::newRow("three fields") << QString("99:2,1200,4094") << ReadingFault::TooFewFields;
        QTest::newRow("an empty payload") << QString("99::2,1,2,3") << ReadingFault::TooFewFields;
        QTest::newRow("a count too small") << QString("5:2,1,2,3") << ReadingFault::TooFewFields;
        QTest::newRow("no count") << QString("x:2,1,2,3") << ReadingFault::TooFewFields;
    }
    void otherTextsAreRefused()
    {
        QFETCH(QString, text);
        Reading reading;
        QTEST(parseReading(text, &reading), "fault");
    }

    void theValuesTellSamplesFromReleases_data()
    {
        QTest::addColumn<Values>("values");
        QTest::addColumn<ReadingClass>("expected");
        QTest::newRow("the lowest sample") << Values{ { 0, 0, 0 } } << ReadingClass::Sample;
        QTest::newRow("the highest") << Values{ { 4094, 4094, 4094 } } << ReadingClass::Sample;
        QTest::newRow("a release") << Values{ { 4095, 4095, 4095 } } << ReadingClass::Release;
        QTest::newRow("4095 behind a value")
            << Values{ { 9, 4095, 4095 } } << ReadingClass::Invalid;
        QTest::newRow("4095 before a value")
            << Values{ { 4095, 4095, 9 } } << ReadingClass::Invalid;
        QTest::newRow("above 4095") << Values{ { 4096, 4096, 4096 } } << ReadingClass::Invalid;
        QTest::newRow("below 0") << Values{ { 9, 9, -1 } } << ReadingClass::Invalid;
    }
    void theValuesTellSamplesFromReleases()
    {
        QFETCH(Values, values);
        Reading reading;
        reading.adc = values;
        QTEST(classify(reading), "expected");
    }
};

QTEST_APPLESS_MAIN(TestReading)
#include "tst_reading.moc"
