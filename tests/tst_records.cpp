#include "records.h"

#include <QStringList>
#include <QtTest>

namespace {

QMap<int, QString> numbered(const QStringList &samples)
{
    QMap<int, QString> result;
    for (const QString &sample : samples)
        result.insert(result.size(), sample);
    return result;
}

} // namespace

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void aSampleCollidesWithin60InEachChannel_data()
    {
        QTest::addColumn<QString>("learned");
        QTest::addColumn<bool>("expected");
        QTest::newRow("60 above") << QString("2,1060,2060,3060") << true;
        QTest::newRow("60 below") << QString("2,940,1940,2940,9") << true;
        QTest::newRow("61 in the first") << QString("2,1061,2000,3000") << false;
        QTest::newRow("61 in the second") << QString("2,1000,1939,3000") << false;
        QTest::newRow("61 in the third") << QString("2,1000,2000,3061") << false;
        QTest::newRow("the other key line") << QString("3,1000,2000,3000") << false;
        QTest::newRow("beyond int") << QString("2,-2147483648,2000,3000") << false;
        QTest::newRow("a field too few") << QString("2,1000,2000") << false;
    }
    void aSampleCollidesWithin60InEachChannel()
    {
        QFETCH(QString, learned);
        QTEST(collides("314,2,1000,2000,3000", learned), "expected");
    }

    void aMissingFieldIsNotTakenAsZero()
    {
        QVERIFY(!collides("314,2,1,2,0", "2,1,2"));
        QVERIFY(!collides("314,2,1,2", "2,1,2,0"));
    }

    void aKeyIsLearnedAsTheMeans_data()
    {
        QTest::addColumn<QStringList>("samples");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one, with more fields") << QStringList("9,2,1,2,3,99") << "2,1,2,3";
        QTest::newRow("a half goes up")
            << QStringList{ "9,2,1200,0,7", "9,2,1203,1,7" } << "2,1202,1,7";
        QTest::newRow("thirds") << QStringList{ "9,3,2,2,0", "9,3,3,2,0", "9,3,3,3,0" }
                                << "3,3,2,0";
        QTest::newRow("two key lines") << QStringList{ "9,3,1,1,1", "9,2,3,3,3" } << "3,2,2,2";
    }
    void aKeyIsLearnedAsTheMeans()
    {
        QFETCH(QStringList, samples);
        QTEST(learnedRecordFrom(numbered(samples)), "expected");
    }

    // The exact mean of 4000.4999 is 4000.5 in single precision, which is rounded up.
    void meansAreOfSinglePrecision()
    {
        QStringList samples;
        for (int i = 0; i < 10000; ++i)
            samples += i < 4999 ? "9,2,4001,0,0" : "9,2,4000,0,0";
        QCOMPARE(learnedRecordFrom(numbered(samples)), QString("2,4001,0,0"));
    }
};

QTEST_APPLESS_MAIN(TestRecords)
#include "tst_records.moc"
