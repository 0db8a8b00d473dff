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
        pass(3999);
        QCOMPARE(window.waiting(), Codes{ Home });
        takeLog();
        pass(1);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.notice(), QString("red NO LEARNING."));
        const QString line = "[swc_print][recorrectBtnStatus N] remove:314";
        QCOMPARE(takeLog(), (QStringList{ line, line }));
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
        QCOMPARE(window.samples(), QStringList());
        QCOMPARE(window.notice(), QString("black SUCCESS."));
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():1",
                          "[swc_print][line:N][Velmora 314 is success!] GREEN...",
                          "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]",
                          "[swc_print][onFileChange N] remove:314" }));
        pass(4000);
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(takeLog(), QStringList());
    }

    void aReleaseWithoutSamplesFails()
    {
        LearningWindow window;
        window.tap(Home);
        takeLog();
        window.release();
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.notice(), QString("red FAILED."));
        QCOMPARE(takeLog().mid(1, 2),
                 (QStringList{ "[swc_print][func:insertSwcKeys][line:N][mapSampleKeys is empty]",
                               "[swc_print][line:N][Velmora 314 is fail!] GRAY..." }));
    }

    void equalSamplesAreStoredOnce()
    {
        LearningWindow window;
        window.tap(Home);
        takeLog();
        window.measure(2, 1, 2, 3);
        QCOMPARE(takeLog().mid(1),
                 (QStringList{
                     "[swc_print][isChuanKey][mapSwcKeys' size is empty]",
                     "[swc_print][func:insertSampleKeys][key:0, value(314,2,1,2,3)][size:1]" }));
        window.measure(3, 4, 5, 6);
        window.measure(2, 1, 2, 3);
        QCOMPARE(takeLog().last(), QString("[swc_print][ChongFuKeys...]"));
        window.measure(2, 7, 8, 9);
        QCOMPARE(window.sampleNumbers(), (QList<int>{ 0, 1, 3 }));
    }

    void aSampleNearALearnedKeyIsRefused()
    {
        LearningWindow window;
        window.learn(Down, "3,1,1,1");
        window.learn(Back, "2,1200,99,9");
        window.tap(Home);
        window.measure(2, 1261, 39, 9);
        takeLog();
        window.measure(2, 1260, 39, 9);
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.notice(), QString("red REPEAT."));
        QCOMPARE(takeLog().mid(1),
                 QStringList("[swc_print][line:N][Velmora 314 is CHUAN!] GRAY..."));
        window.measure(2, 1262, 39, 9);
        QCOMPARE(window.sampleNumbers(), (QList<int>{ 0, 1 }));
        QCOMPARE(window.colourOf(Home), Gray);
    }

    void anInvalidReadingFailsButTheKeyWaits()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        window.measure(2, 1, 4095, 4095);
        QCOMPARE(window.samples(), QStringList("314,2,1,2,3"));
        QCOMPARE(window.waiting(), Codes{ Home });
        QCOMPARE(window.colourOf(Home), Gray);
        window.release();
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.notice(), QString("red FAILED.")); // the second one is dropped
    }

    void aLearnedKeyIsNotSelected()
    {
        LearningWindow window;
        window.learn(Home, "2,1,2,3");
        window.tap(Home);
        QCOMPARE(window.notice(), QString("red LEARNED."));
        takeLog();
        window.release();
        QCOMPARE(
            takeLog(),
            (QStringList{ "[swc_print][onFileChange N] validKey:314 clickAndValidKeys.size():0",
                          "[swc_print][onFileChange N] NO BUTTON is pressed" }));
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
        QCOMPARE(window.waiting(), Codes{ Back });
    }

    void otherReadingsAreIgnored()
    {
        LearningWindow window;
        window.measure(2, 1, 2, 3); // nothing is tapped yet
        QCOMPARE(takeLog(), QStringList());
        window.tap(Home);
        takeLog();
        window.measure(1, 1, 2, 3);
        window.measure(4, 4095, 4095, 4095);
        window.writeText("2,1");
        window.writeText("9:2,1,2");
        QCOMPARE(takeLog(),
                 (QStringList{ "[swc_print][!contains(:)] \"2,1\"",
                               "[swc_print][fewer than four fields] \"9:2,1,2\"" }));
        QCOMPARE(window.colourOf(Home), Blue);
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
        QVERIFY(takeLog().filter("initSampleKeys").isEmpty());
        QCOMPARE(window.samples(), QStringList("314,2,2,0,0"));
        QCOMPARE(window.sampleNumbers(), QList<int>{ 0 });
        window.tap(Back);
        window.release();
        QCOMPARE(window.learnedCount(), 0);
    }

    void aNewSelectionStartsWithoutSamples()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        pass(4000);
        QCOMPARE(window.samples(), QStringList("314,2,1,2,3"));
        window.tap(Home);
        QCOMPARE(window.samples(), QStringList());
    }

    void aKeyThatIsTappedTwiceWaitsTwice()
    {
        LearningWindow window;
        window.tap(Back);
        window.tap(Home);
        window.measure(2, 100, 0, 0);
        pass(1000);
        window.tap(Home);
        window.measure(2, 200, 0, 0);
        window.release();
        QCOMPARE(window.learned(Home), QString("2,150,0,0"));
        QCOMPARE(window.waiting(), (Codes{ Back, Home }));
        QCOMPARE(window.colourOf(Back), Blue);
        pass(3000); // the first tap times out and ends the selection of the second
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
    }
};

QTEST_MAIN(TestLearning)
#include "tst_learning.moc"
