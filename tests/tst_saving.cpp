#include "learningwindow.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <memory>

namespace {

const QByteArray homeAndBack = R"({"direction0":[{"direction_event":314,"adc":[2301,3349,4094]},
    {"direction_event":250,"adc":[1202,3350,4094]}],"made by":")"
                               "\xfc"
                               R"("})"
    + QByteArray(9, '\0');

} // namespace

// The configuration file, its backup and the flag: what the start, save and clear do to them.
class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void aLearnedKeyStartsGreen()
    {
        LearningWindow window(homeAndBack);
        QCOMPARE(window.colourOf(Home), GreenAtStart);
        QCOMPARE(window.colourOf(Back), GreenAtStart);
        QCOMPARE(window.colourOf(Mute), Gray);
        QCOMPARE(window.learned(Home), QString("2,2301,3349,4094"));
        QCOMPARE(takeLog(),
                 (QStringList{ "314   \"2,2301,3349,4094\"", "250   \"2,1202,3350,4094\"",
                               "[swc_print]314 is LEARNED.", "[swc_print]250 is LEARNED." }));
    }

    void theLastOfTwoKeysWithACodeCounts()
    {
        const LearningWindow window(R"({"direction1":[{"direction_event":5,"adc":[3]}],
            "direction0":[{"direction_event":5,"adc":[1]},{"direction_event":5,"adc":[2]}]})");
        QCOMPARE(window.learnedCount(), 1);
        QCOMPARE(window.learned(5), QString("3,3"));
    }

    void theFirstConfigurationWithKeysIsBackedUp()
    {
        const LearningWindow window(homeAndBack);
        QCOMPARE(read(backupPath), homeAndBack);
        QCOMPARE(QFileInfo(backupPath).lastModified(), QFileInfo(configurationPath).lastModified());
    }

    void aConfigurationWithoutKeysIsNotBackedUp()
    {
        const LearningWindow window("{}");
        QVERIFY(!QFile::exists(backupPath));
    }

    void loadingReplacesTheKeysUnlessTheFileIsMissing()
    {
        LearningWindow window(homeAndBack);
        window.learn(Mute, "2,1,1,1");
        QCOMPARE(window.loadSwcKeys(), 2);
        QCOMPARE(window.learnedCount(), 2);
        QVERIFY(QFile::remove(configurationPath));
        QCOMPARE(window.loadSwcKeys(), -1);
        QCOMPARE(window.learnedCount(), 2);
    }

    void saveWritesTheKeysAndEnds()
    {
        LearningWindow window;
        window.learn(Back, "2,1202,3350,4094");
        window.learn(Home, "2,2301,3349,4094");
        window.learn(Mute, "3,806,4094,4094");
        takeLog();
        QCOMPARE(window.save(), 0);
        QVERIFY(read(configurationPath).contains("\"direction_event\": 149"));
        QCOMPARE(read(backupPath), read(configurationPath));
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onTouchKeysClicked N] save all keys",
                          "[swc_print][func:insertSwcKey1Flag][line:N][size:1][key:1][value:1099]",
                          "[swc_print][saveSwcKeys N][key:1][value:549]",
                          "[swc_print][insertSwcKey2Flag N][size:1][key:3][value:4094]",
                          "[swc_print][saveSwcKeys N][key:3][value:2047]",
                          "[swc_print][func:saveSwcKeys]" }));
        const QMap<int, QString> saved = window.learnedKeys();
        QCOMPARE(window.loadSwcKeys(), 3);
        QCOMPARE(window.learnedKeys(), saved);
    }

    void saveWithoutKeysEmptiesTheFile()
    {
        LearningWindow window(homeAndBack);
        window.clear("Yes");
        takeLog();
        QCOMPARE(window.save(), 0);
        QCOMPARE(read(configurationPath), QByteArray(""));
        QCOMPARE(read(backupPath), homeAndBack);
        QCOMPARE(takeLog(), QStringList("[swc_print][onTouchKeysClicked N] save all keys"));
    }

    void yesForgetsTheKeysAndGoesOn()
    {
        LearningWindow window(homeAndBack);
        window.tap(Mute);
        window.measure(3, 4, 5, 6);
        takeLog();
        QCOMPARE(window.clear("Yes"), stillRunning);
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onTouchKeysClicked N] canel all keys", "[msg_print] 800,480",
                          "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]",
                          "[swc_print][func:initSwcKeys][size:0]" }));
        QCOMPARE(window.learnedCount(), 0);
        QCOMPARE(window.samples(), QStringList());
        for (int code : window.codes())
            QCOMPARE(window.colourOf(code), Gray);
        QCOMPARE(read(flagPath), QByteArray("11"));
        QCOMPARE(read(configurationPath), homeAndBack);

        window.measure(3, 4, 5, 6);
        window.release();
        QCOMPARE(takeLog(), QStringList()); // the last tap was on clear
        pass(4000);
        QCOMPARE(window.notice(), QString("NO LEARNING."));
        window.tap(Home);
        window.measure(2, 2301, 3349, 4094);
        window.release();
        QCOMPARE(window.learned(Home), QString("2,2301,3349,4094"));
    }

    void noBringsTheBackupBackAndEnds_data()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("No") << false;
        QTest::newRow("the Escape key") << true;
    }
    void noBringsTheBackupBackAndEnds()
    {
        QFETCH(bool, byEscape);
        LearningWindow window(homeAndBack);
        write(configurationPath, QByteArray(5000, 'x'));
        window.tap(Mute);
        window.measure(3, 4, 5, 6);
        const int code = window.clear([byEscape] {
            if (byEscape)
                QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
            else
                answer("No");
        });
        QCOMPARE(code, 0);
        QCOMPARE(read(configurationPath), homeAndBack);
        QCOMPARE(window.learnedCount(), 2);
        QCOMPARE(window.samples().size(), 1);
        QCOMPARE(read(flagPath), QByteArray("1"));
    }

    void noWithoutABackupLeavesTheFile()
    {
        LearningWindow window;
        write(configurationPath, "later");
        QCOMPARE(window.clear("No"), 0);
        QCOMPARE(read(configurationPath), QByteArray("later"));
        QVERIFY(!QFile::exists(backupPath));
    }

    void tapsQueuedBehindTheAnswerAreIgnored()
    {
        LearningWindow window(homeAndBack);
        const int code = window.clear([&window] {
            answer("Yes");
            window.saveButton()->click();
            window.clearButton()->click();
        });
        QCOMPARE(code, stillRunning);
        QCOMPARE(read(configurationPath), homeAndBack);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(window.save(), 0); // a tap counts again
    }

    // The question is never answered, because the event loop is about to end.
    void aTapOnClearQueuedBehindSaveIsIgnored()
    {
        LearningWindow window(homeAndBack);
        window.learn(Mute, "3,806,4094,4094");
        const int code = exitCodeOf([&window] {
            window.saveButton()->click();
            window.clearButton()->click();
        });
        QCOMPARE(code, 0);
        QCOMPARE(read(configurationPath).count("direction_event"), 3);
    }

    void theFlagTellsWhetherTheWindowExists()
    {
        const HeadUnit unit;
        auto window = std::make_unique<KeyMainWindow>(nullptr);
        QCOMPARE(read(flagPath), QByteArray("1"));
        takeLog();
        window.reset();
        QCOMPARE(read(flagPath), QByteArray("0"));
        QCOMPARE(takeLog(), QStringList("~KeyMainWindow"));
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
