#include "learningwindow.h"

using Codes = QList<int>;

// Taps, readings and time-outs.
class TestLearning : public QObject
{
    Q_OBJECT

private slots:
    void aTapSelectsTheKeyForFourSeconds()
    {
        LearningWindow window;
        QTest::mousePress(window.button(Home), Qt::LeftButton);
        QCOMPARE(window.colourOf(Home), Gray);
        QTest::mouseRelease(window.button(Home), Qt::LeftButton);
        QCOMPARE(window.colourOf(Home), Blue);
        QCOMPARE(window.waiting(), Codes{ Home });
        pass(3999);
        QCOMPARE(window.waiting(), Codes{ Home });
        takeLog();
        pass(1);
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.notice(), QString("NO LEARNING."));
        QCOMPARE(window.noticeColour(), QString("red"));
        QCOMPARE(takeLog(),
                 (QStringList{ "[swc_print][recorrectBtnStatus N] remove:314",
                               "[swc_print][recorrectBtnStatus N] remove:314" }));
    }

    void aReleaseLearnsTheMeanOfTheSamples()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1200, 9, 9);
        window.measure(2, 1203, 9, 9);
        takeLog();
        window.release();
        QCOMPARE(window.learned(Home), QString("2,1202,9,9"));
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.samples(), QStringList());
        QCOMPARE(window.notice(), QString("SUCCESS."));
        QCOMPARE(window.noticeColour(), QString("black"));
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1",
                          "[swc_print][line:N][Velmora 314 is success!] GREEN...",
                          "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]",
                          "[swc_print][onFileChange N] remove:314" }));
    }

    void aReleaseWithoutSamplesFails()
    {
        LearningWindow window;
        window.tap(Home);
        takeLog();
        window.release();
        QCOMPARE(window.learnedCount(), 0);
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.notice(), QString("FAILED."));
        QCOMPARE(window.noticeColour(), QString("red"));
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1",
                          "[swc_print][func:insertSwcKeys][line:N][mapSampleKeys is empty]",
                          "[swc_print][line:N][Velmora 314 is fail!] GRAY...",
                          "[swc_print][onFileChange N] remove:314" }));
    }

    void equalSamplesAreStoredOnce()
    {
        LearningWindow window;
        window.tap(Home);
        takeLog();
        window.measure(2, 1, 2, 3);
        window.measure(3, 4, 5, 6);
        window.measure(2, 1, 2, 3);
        const QString reading =
            "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1";
        const QString nothingLearned = "[swc_print][isChuanKey][mapSwcKeys' size is empty]";
        const QString stored = "[swc_print][func:insertSampleKeys]";
        QCOMPARE(
            takeLog(),
            (QStringList{ reading, nothingLearned, stored + "[key:0, value(314,2,1,2,3)][size:1]",
                          reading, nothingLearned, stored + "[key:1, value(314,3,4,5,6)][size:2]",
                          reading, nothingLearned, "[swc_print][ChongFuKeys...]" }));
        window.measure(2, 7, 8, 9);
        QCOMPARE(window.sampleNumbers(), (QList<int>{ 0, 1, 3 }));
        QCOMPARE(window.colourOf(Home), Blue);
    }

    void aSampleNearALearnedKeyIsRefused()
    {
        LearningWindow window;
        window.learn(Down, "3,1,1,1");
        window.learn(Back, "2,1200,99,9");
        window.tap(Home);
        takeLog();
        window.measure(2, 1260, 39, 9);
        QCOMPARE(window.samples(), QStringList());
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.waiting(), Codes{ Home });
        QCOMPARE(window.notice(), QString("REPEAT."));
        QCOMPARE(window.noticeColour(), QString("red"));
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1",
                          "[swc_print][line:N][Velmora 314 is CHUAN!] GRAY..." }));
        pass(3000);
        window.measure(2, 1261, 39, 9);
        QCOMPARE(window.sampleNumbers(), QList<int>{ 0 });
        QCOMPARE(window.colourOf(Home), Gray);
        window.release();
        QCOMPARE(window.learned(Home), QString("2,1261,39,9"));
        QCOMPARE(window.colourOf(Home), Green);
    }

    void anInvalidReadingFailsButTheKeyWaits()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        takeLog();
        window.measure(2, 1, 4095, 4095);
        QCOMPARE(window.samples(), QStringList("314,2,1,2,3"));
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.waiting(), Codes{ Home });
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1",
                          "[swc_print][line:N][Velmora 314 is fail!] GRAY..." }));
        window.release();
        QCOMPARE(window.learned(Home), QString("2,1,2,3"));
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.notice(), QString("FAILED.")); // the second one is dropped
    }

    void aLearnedKeyIsNotSelected()
    {
        LearningWindow window;
        window.learn(Home, "2,1,2,3");
        window.tap(Home);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.notice(), QString("LEARNED."));
        QCOMPARE(window.noticeColour(), QString("red"));
        takeLog();
        window.release();
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():0",
                          "[swc_print][onFileChange N] NO BUTTON is pressed" }));
        QCOMPARE(window.learnedCount(), 1);
    }

    void aLearnedKeyIsLearnedAgainWhileAnotherWaits()
    {
        LearningWindow window;
        window.learn(Home, "2,1,2,3");
        window.tap(Back);
        window.tap(Home);
        window.measure(2, 1, 2, 99);
        window.release();
        QCOMPARE(window.learned(Home), QString("2,1,2,99"));
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.colourOf(Back), Blue);
        QCOMPARE(window.waiting(), Codes{ Back });
    }

    void otherReadingsAreIgnored_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("log");
        QTest::newRow("key line 1") << QByteArray("99:1,1,2,3") << QStringList();
        QTest::newRow("key line 4") << QByteArray("99:4,4095,4095,4095") << QStringList();
        QTest::newRow("no colon") << QByteArray("2,1")
                                  << QStringList("[swc_print][!contains(:)] \"2,1\"");
        QTest::newRow("three fields")
            << QByteArray("99:2,1,2")
            << QStringList("[swc_print][fewer than four fields] \"99:2,1,2\"");
    }
    void otherReadingsAreIgnored()
    {
        QFETCH(QByteArray, text);
        LearningWindow window;
        window.tap(Home);
        takeLog();
        window.writeText(text);
        QTEST(takeLog(), "log");
        QCOMPARE(window.samples(), QStringList());
        QCOMPARE(window.colourOf(Home), Blue);
        QCOMPARE(window.waiting(), Codes{ Home });
    }

    void aReadingBeforeTheFirstTapIsIgnored()
    {
        LearningWindow window;
        window.measure(2, 1, 2, 3);
        QCOMPARE(takeLog(), QStringList());
    }

    void theSamplesOfAnotherKeyAreDropped()
    {
        LearningWindow window;
        window.tap(Home);
        window.tap(Back);
        window.measure(2, 1, 0, 0);
        window.tap(Home);
        takeLog();
        window.measure(2, 2, 0, 0);
        QCOMPARE(window.samples(), QStringList("314,2,2,0,0"));
        QCOMPARE(window.sampleNumbers(), QList<int>{ 0 });
        QVERIFY(takeLog().filter("initSampleKeys").isEmpty());
        window.tap(Back);
        window.release();
        QCOMPARE(window.learnedCount(), 0);
        QCOMPARE(window.waiting(), (Codes{ Home, Home, Back }));
        QCOMPARE(window.notice(), QString("FAILED."));
    }

    void aNewSelectionStartsWithoutSamples()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        pass(4000);
        QCOMPARE(window.samples(), QStringList("314,2,1,2,3"));
        takeLog();
        window.tap(Home);
        QCOMPARE(window.samples(), QStringList());
        QCOMPARE(takeLog(), QStringList());
        window.measure(2, 1, 2, 3);
        QCOMPARE(window.sampleNumbers(), QList<int>{ 0 });
    }
};

QTEST_MAIN(TestLearning)
#include "tst_learning.moc"
