#include "records.h"

#include <QtTest>

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void aSampleCollidesWithin60InEachChannel()
    {
        const QString sample = "314,2,1000,2000,3000";
        QVERIFY(collides(sample, "2,1060,2060,3060"));
        QVERIFY(collides(sample, "2,940,1940,2940"));
        QVERIFY(!collides(sample, "2,1061,2000,3000"));
        QVERIFY(!collides(sample, "2,1000,1939,3000"));
        QVERIFY(!collides(sample, "2,1000,2000,3061"));
        QVERIFY(!collides(sample, "3,1000,2000,3000"));
    }

    void aLearnedRecordMayHaveOtherFields()
    {
        QVERIFY(collides("314,2,1,2,0", "2,1,2,0,99"));
        QVERIFY(!collides("314,2,1,2,0", "2,1,2"));
        QVERIFY(!collides("314,2,0,0,0", "2,-2147483648,0,0"));
    }

    void aKeyIsLearnedAsTheRoundedMeans()
    {
        const QMap<int, QString> samples = {
            { 0, "9,3,0,0,1,99" }, { 2, "9,2,0,0,1" }, { 3, "9,2,1,0,1" }, { 4, "9,2,1,1,0" }
        };
        QCOMPARE(learnedRecordFrom(samples), QString("3,1,0,1"));
    }
};

QTEST_APPLESS_MAIN(TestRecords)
#include "tst_records.moc"
