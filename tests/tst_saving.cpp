#include "headunit.h"

#include <QFile>

// With a key in both groups, a byte that is not UTF-8, and zero bytes that a power loss has left.
const QByteArray homeAndBack = R"({"direction1":[{"direction_event":314,"adc":[3]}],
    "direction0":[{"direction_event":314,"adc":[1,2]},{"direction_event":250}],"unused":")"
    + QByteArray("\xfc\"}\0\0", 5);

// The configuration file, its backup and the flag: what the start, save and clear do to them.
class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void aLearnedKeyStartsGreenAndIsBackedUp()
    {
        LearningWindow window(homeAndBack);
        QCOMPARE(takeLog(),
                 (QStringList{ "314   \"2,1,2\"", "250   \"2\"", "314   \"3,3\"", "314 is LEARNED.",
                               "250 is LEARNED." }));
        QCOMPARE(window.learned(Home), QString("3,3"));
        QCOMPARE(window.colourOf(Home), GreenAtStart);
        QCOMPARE(window.colourOf(Mute), Gray);
        QCOMPARE(read(backupPath), homeAndBack);
    }

    void aConfigurationWithoutKeysIsNotBackedUp()
    {
        const LearningWindow window("{}");
        QVERIFY(!QFile::exists(backupPath));
    }

    void saveWritesTheKeysAndEnds()
    {
        LearningWindow window;
        window.learn(Home, "2,1099,0,0");
        window.learn(Mute, "3,806,4094,4094");
        takeLog();
        QCOMPARE(window.save(), 0);
        QCOMPARE(takeLog(),
                 (QStringList{ "[onTouchKeysClicked N] save all keys",
                               "[func:insertSwcKey1Flag][line:N][size:1][key:1][value:1099]",
                               "[saveSwcKeys N][key:1][value:549]",
                               "[insertSwcKey2Flag N][size:1][key:3][value:4094]",
                               "[saveSwcKeys N][key:3][value:2047]", "[func:saveSwcKeys]" }));
        QCOMPARE(read(backupPath), read(configurationPath));
        window.learn(Back, "2,1,1,1"); // forgotten when the file is loaded
        QCOMPARE(window.loadSwcKeys(), 2);
        QCOMPARE(window.learned(Mute), QString("3,806,4094,4094"));
        QFile::remove(configurationPath);
        QCOMPARE(window.loadSwcKeys(), -1);
        QCOMPARE(window.learnedCount(), 2);
    }

    void yesForgetsTheKeysAndGoesOn()
    {
        LearningWindow window(homeAndBack);
        window.tap(Mute);
        window.measure(3, 4, 5, 6);
        takeLog();
        QCOMPARE(window.clear(), QString("Delete data?"));
        QCOMPARE(takeLog(),
                 (QStringList{ "[onTouchKeysClicked N] canel all keys", "[msg_print] 800,480",
                               "[func:initSampleKeys][mapSampleKeys' size:0]",
                               "[func:initSwcKeys][size:0]" }));
        QCOMPARE(window.learnedCount(), 0);
        QCOMPARE(window.samples(), QStringList());
        window.initSwcKeys(); // nothing to forget, and nothing to log
        for (int code : window.codes())
            QCOMPARE(window.colourOf(code), Gray);
        QCOMPARE(read(flagPath), QByteArray("11"));
        QCOMPARE(read(configurationPath), homeAndBack);

        window.measure(3, 4, 5, 6);
        window.release();
        QCOMPARE(takeLog(), QStringList()); // the last tap was on clear
        pass(4000); // Mute still waits
        QCOMPARE(window.notice(), QString("red NO LEARNING."));
        window.tap(Home);
        QCOMPARE(window.colourOf(Home), Blue);
    }

    void aMissingFlagIsNotCreated()
    {
        const HeadUnit unit;
        QFile::remove(flagPath);
        KeyMainWindow window(nullptr);
        window.writeClearFlag();
        window.writeLearnFlag(false);
        QVERIFY(!QFile::exists(flagPath));
    }
};

QTEST_MAIN(TestSaving)
#include "tst_saving.moc"
