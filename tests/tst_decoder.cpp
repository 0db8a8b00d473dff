#include "driver.h"

#include <QTest>

class TestDecoder : public QObject
{
    Q_OBJECT

private slots:
    void theNearestKeyWithinItsIntervalIsDecoded()
    {
        const QByteArray configuration = R"({ "direction0": [
            { "direction_event": 150, "adc": [0, 1000, 0], "road": 4, "interval": 100 },
            { "direction_event": 148, "adc": [0, 1000, 0], "road": 2, "interval": 100 },
            { "direction_event": 149, "adc": [0, 1150, 0], "road": 2, "interval": 100 } ] })";
        QCOMPARE(decode(2, { 4094, 899, 0 }, configuration), 0);
        QCOMPARE(decode(2, { 4094, 900, 0 }, configuration), 148);
        QCOMPARE(decode(2, { 4094, 1075, 0 }, configuration), 148);
        QCOMPARE(decode(2, { 4094, 1076, 0 }, configuration), 149);
        QCOMPARE(decode(3, { 4094, 1000, 0 }, configuration), 0);
    }
};

QTEST_GUILESS_MAIN(TestDecoder)
#include "tst_decoder.moc"
