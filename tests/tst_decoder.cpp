#include "driver.h"

#include <QTest>

class TestDecoder : public QObject
{
    Q_OBJECT

private slots:
    void takesTheNearestKeyWithinItsInterval_data()
    {
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("code");
        QTest::newRow("the learned value") << 2 << 1000 << 148;
        QTest::newRow("at the lower end") << 2 << 900 << 148;
        QTest::newRow("below the lower end") << 2 << 899 << 0;
        QTest::newRow("nearer to the first") << 2 << 1074 << 148;
        QTest::newRow("nearer to the second") << 2 << 1076 << 149;
        QTest::newRow("the other line") << 3 << 1000 << 166;
    }

    void takesTheNearestKeyWithinItsInterval()
    {
        const QByteArray configuration = R"({
            "direction0": [
                { "direction_event": 150, "adc": [0, 1000, 0], "road": 4, "interval": 100 },
                { "direction_event": 151, "adc": [0, 1000, 0], "road": 2 },
                { "direction_event": 148, "adc": [0, 1000, 0], "road": 2, "interval": 100 },
                { "direction_event": 149, "adc": [0, 1150, 0], "road": 2, "interval": 100 }
            ],
            "direction1": [
                { "direction_event": 166, "adc": [4094, 0, 0], "road": 1, "interval": 100 }
            ]
        })";
        QFETCH(int, line);
        QFETCH(int, value);
        QTEST(decode(line, { 4094, value, 4094 }, configuration), "code");
    }
};

QTEST_GUILESS_MAIN(TestDecoder)
#include "tst_decoder.moc"
