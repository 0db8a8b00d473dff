#include "configuration.h"

#include <QJsonObject>
#include <QStringList>
#include <QtTest>

class TestConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void theFileHasTheKeysOfBothLines()
    {
        const QMap<int, QString> keys = { { 250, "2,1202,3350" },
                                          { 149, "3,8,9,10,11" },
                                          { 148, "4,1,2,3" } };
        const QByteArray expected = R"({
    "direction0": [
        {
            "adc": [
                1202,
                3350,
                0
            ],
            "direction_event": 250,
            "interval": 549,
            "road": 1
        }
    ],
    "direction1": [
        {
            "adc": [
                8,
                9,
                10
            ],
            "direction_event": 149,
            "road": 3
        }
    ]
}
)";
        QCOMPARE(configurationText(keys, { { 1, 1099 } }, { { 3, -1 } }), expected);
    }

    void theChannelWithTheLargestSpacingIsSelected_data()
    {
        QTest::addColumn<QStringList>("records");
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("spacing");
        QTest::newRow("one key") << QStringList{ "2,1,3,2", "3,0,0,0" } << 2 << 3;
        QTest::newRow("equal spacings") << QStringList("2,8,9,9") << 3 << 9;
        QTest::newRow("a difference") << QStringList{ "2,20,0,0", "2,25,0,0" } << 1 << 5;
        QTest::newRow("unsorted") << QStringList{ "2,0,30,0", "2,0,9,0", "2,0,20,0" } << 2 << 9;
        QTest::newRow("missing values are 0") << QStringList{ "2", "2,8,9" } << 3 << 0;
        QTest::newRow("negative") << QStringList{ "2,2147483647,-9,-9", "2,-8,-9,-9" } << 1 << -8;
    }
    void theChannelWithTheLargestSpacingIsSelected()
    {
        QFETCH(QStringList, records);
        QMap<int, QString> keys;
        for (const QString &record : records)
            keys.insert(keys.size(), record);
        const QMap<int, int> selected = selectChannel(keys, 2);
        QCOMPARE(selected.size(), 1);
        QTEST(selected.firstKey(), "channel");
        QTEST(selected.first(), "spacing");
    }

    void keysAreLoadedInTheOrderOfTheFile()
    {
        const QJsonObject file = parseConfiguration(R"({ "unused": "中", "direction1": [
            { "direction_event": 7, "adc": [1, 2, 3, 4] }, { "direction_event": 5 },
            { "direction_event": 6, "adc": [1.5, "2", -3, 1e300] },
            { "direction_event": 8, "adc": 9 } ] })");
        QStringList records;
        for (const LoadedKey &key : keysOfGroup(file, line3Group))
            records += QString("%1: %2").arg(key.code).arg(key.record);
        QCOMPARE(records, (QStringList{ "7: 3,1,2,3,4", "5: 3", "6: 3,0,0,-3,0", "8: 3" }));
    }

    void otherKeysAreIgnored()
    {
        for (const QString text : { R"({"direction0":[{"direction_event":5}])",
                                    R"({"direction0":{"direction_event":5}})",
                                    R"({"direction0":[{"direction_event":0},{"adc":[1]},7]})",
                                    R"({"direction0":[{"direction_event":12.5}]})",
                                    R"({"direction0":[{"direction_event":"5"}]})" })
            QVERIFY2(keysOfGroup(parseConfiguration(text), line2Group).isEmpty(), qPrintable(text));
    }
};

QTEST_APPLESS_MAIN(TestConfiguration)
#include "tst_configuration.moc"
