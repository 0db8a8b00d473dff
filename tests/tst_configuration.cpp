#include "configuration.h"

#include <QJsonObject>
#include <QStringList>
#include <QtTest>

namespace {

using Selection = QMap<int, int>; // channel and spacing

const char threeKeys[] = R"({
    "direction0": [
        {
            "adc": [
                1202,
                3350,
                4094
            ],
            "direction_event": 250,
            "interval": 549,
            "road": 1
        },
        {
            "adc": [
                2301,
                0,
                0
            ],
            "direction_event": 314,
            "interval": 549,
            "road": 1
        }
    ],
    "direction1": [
        {
            "adc": [
                806,
                4094,
                4094
            ],
            "direction_event": 149,
            "road": 3
        }
    ]
}
)";

} // namespace

Q_DECLARE_METATYPE(Selection)

class TestConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void theFileHasTheKeysOfBothLines()
    {
        const QMap<int, QString> keys = { { 314, "2,2301" },
                                          { 250, "2,1202,3350,4094,7" },
                                          { 149, "3,806,4094,4094" },
                                          { 148, "4,1,2,3" } };
        QCOMPARE(configurationText(keys, { { 1, 1099 } }, { { 3, -1 } }), QByteArray(threeKeys));
        const QByteArray empty =
            "{\n    \"direction0\": [\n    ],\n    \"direction1\": [\n    ]\n}\n";
        QCOMPARE(configurationText({}, {}, {}), empty);
    }

    void theChannelWithTheLargestSpacingIsSelected_data()
    {
        QTest::addColumn<QStringList>("records");
        QTest::addColumn<Selection>("expected");
        QTest::newRow("no key") << QStringList("3,1,2,3") << Selection();
        QTest::newRow("one key") << QStringList("2,1,3,2") << Selection{ { 2, 3 } };
        QTest::newRow("the highest of equal ones")
            << QStringList("2,8,9,9") << Selection{ { 3, 9 } };
        QTest::newRow("the distance of neighbours")
            << QStringList{ "2,2301,3,4", "3,0,0,0", "2,1202,3,4" } << Selection{ { 1, 1099 } };
        QTest::newRow("the lowest value is less")
            << QStringList{ "2,10,0,0", "2,500,0,0" } << Selection{ { 1, 10 } };
        QTest::newRow("unsorted") << QStringList{ "2,0,3000,0", "2,0,900,0", "2,0,2000,0" }
                                  << Selection{ { 2, 900 } };
        QTest::newRow("missing values are 0")
            << QStringList{ "2", "2,8,9" } << Selection{ { 3, 0 } };
        QTest::newRow("beyond int")
            << QStringList{ "2,2147483647,-9,-9", "2,-8,-9,-9" } << Selection{ { 1, -8 } };
    }
    void theChannelWithTheLargestSpacingIsSelected()
    {
        QFETCH(QStringList, records);
        QMap<int, QString> keys;
        for (const QString &record : records)
            keys.insert(keys.size(), record);
        QTEST(selectChannel(keys, 2), "expected");
    }

    void theIntervalIsHalfTheSpacingRoundedDown()
    {
        QCOMPARE(intervalFor(1099), 549);
        QCOMPARE(intervalFor(-9), -5);
    }

    void aKeyIsLoadedAsItsLineAndItsValues_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("record");
        QTest::newRow("three values") << R"("direction_event":5,"adc":[7,8,9])"
                                      << "3,7,8,9";
        QTest::newRow("more") << R"("direction_event":5,"road":9,"adc":[1,2,3,4])"
                              << "3,1,2,3,4";
        QTest::newRow("no values") << R"("direction_event":5)"
                                   << "3";
        QTest::newRow("not an array") << R"("direction_event":5,"adc":9)"
                                      << "3";
        QTest::newRow("not whole numbers") << R"("direction_event":5,"adc":[1.5,"2",-3,1e300])"
                                           << "3,0,0,-3,0";
    }
    void aKeyIsLoadedAsItsLineAndItsValues()
    {
        QFETCH(QString, key);
        const QJsonObject file = parseConfiguration("{\"direction1\":[{" + key + "}]}");
        const QList<LoadedKey> keys = keysOfGroup(file, line3Group);
        QCOMPARE(keys.size(), 1);
        QCOMPARE(keys.first().code, 5);
        QTEST(keys.first().record, "record");
    }

    void noKeyIsLoaded_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("an empty file") << "";
        QTest::newRow("an array on top") << R"([{"direction_event":5}])";
        QTest::newRow("cut off") << R"({"direction0":[{"direction_event":5}])";
        QTest::newRow("no array") << R"({"direction0":{"direction_event":5}})";
        QTest::newRow("no object") << R"({"direction0":[7]})";
        QTest::newRow("no code") << R"({"direction0":[{"adc":[1]}]})";
        QTest::newRow("code 0") << R"({"direction0":[{"direction_event":0}]})";
        QTest::newRow("half a code") << R"({"direction0":[{"direction_event":12.5}]})";
        QTest::newRow("a text as code") << R"({"direction0":[{"direction_event":"5"}]})";
        QTest::newRow("beyond int") << R"({"direction0":[{"direction_event":1e10}]})";
    }
    void noKeyIsLoaded()
    {
        QFETCH(QString, text);
        QVERIFY(keysOfGroup(parseConfiguration(text), line2Group).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestConfiguration)
#include "tst_configuration.moc"
