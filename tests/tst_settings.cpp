#include "headunit.h"
#include "util.h"

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void theFirstLanguageLineCounts_data()
    {
        QTest::addColumn<QByteArray>("settings");
        QTest::addColumn<int>("index");
        QTest::newRow("Chinese") << QByteArray("Volume=5\r\nSystemLanguageId=1\r\n") << 1;
        QTest::newRow("blanks, two lines")
            << QByteArray("\t SystemLanguageId  = 2\r\nSystemLanguageId=1") << 2;
        QTest::newRow("a longer key") << QByteArray("SystemLanguageIdOld=3") << 3;
        QTest::newRow("not a number") << QByteArray("SystemLanguageId=Chinese") << 0;
        QTest::newRow("no sign") << QByteArray("SystemLanguageId 1\nSystemLanguageId=1") << 0;
        QTest::newRow("two signs") << QByteArray("SystemLanguageId=1=2") << 1;
        QTest::newRow("other keys") << QByteArray("#SystemLanguageId=1\nsystemlanguageid=1") << 0;
        QTest::newRow("a carriage return") << QByteArray("System\rLanguageId=1") << 0;
        QTest::newRow("after 2 MB") << QByteArray(2 << 20, '\n') + "SystemLanguageId=1" << 1;
    }
    void theFirstLanguageLineCounts()
    {
        QFETCH(QByteArray, settings);
        const HeadUnit unit;
        QCOMPARE(Util().getLanguageIdx(), 0);
        write(settingsPath, settings);
        QTEST(Util().getLanguageIdx(), "index");
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
