#include "headunit.h"

using Codes = QList<int>;

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
        window.measure(2, 1, 2, 3);
        pass(3999);
        QCOMPARE(window.waiting(), Codes{ Home });
        takeLog();
        pass(1);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.notice(), QString("red NO LEARNING."));
        const QString line = "[recorrectBtnStatus N] remove:314";
        QCOMPARE(takeLog(), (QStringList{ line, line }));
        QCOMPARE(window.samples().size(), 1);
        window.tap(Home); // a new selection
        QCOMPARE(window.samples().size(), 0);
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
        QCOMPARE(takeLog(),
                 (QStringList{ "[onFileChange N] validKey:314 clickAndValidKeys.size():1",
                               "[line:N][Velmora 314 is success!] GREEN...",
                               "[func:initSampleKeys][mapSampleKeys' size:0]",
                               "[onFileChange N] remove:314" }));
        pass(4000);
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(takeLog(), QStringList());
    }

    void aReleaseWithoutSamplesFails()
    {
        LearningWindow window;
        window.tap(Home);
        window.release();
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.notice(), QString("red FAILED."));
        QCOMPARE(QStringList(takeLog().mid(1, 2)),
                 (QStringList{ "[func:insertSwcKeys][line:N][mapSampleKeys is empty]",
                               "[line:N][Velmora 314 is fail!] GRAY..." }));
    }

    void equalSamplesAreStoredOnce()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        QCOMPARE(QStringList(takeLog().mid(1)),
                 (QStringList{ "[isChuanKey][mapSwcKeys' size is empty]",
                               "[func:insertSampleKeys][key:0, value(314,2,1,2,3)][size:1]" }));
        window.measure(3, 4, 5, 6);
        window.measure(2, 1, 2, 3);
        QCOMPARE(takeLog().last(), QString("[ChongFuKeys...]"));
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
        QCOMPARE(QStringList(takeLog().mid(1)),
                 QStringList("[line:N][Velmora 314 is CHUAN!] GRAY..."));
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

    void aLearnedKeyIsNotSelectedButCanBeReplaced()
    {
        LearningWindow window;
        window.learn(Home, "2,1,2,3");
        window.tap(Home);
        QCOMPARE(window.notice(), QString("red LEARNED."));
        takeLog();
        window.release();
        QCOMPARE(takeLog(),
                 (QStringList{ "[onFileChange N] validKey:314 clickAndValidKeys.size():0",
                               "[onFileChange N] NO BUTTON is pressed" }));
        window.tap(Back);
        window.tap(Home); // takes the readings while Back waits
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
        window.measure(1, 1, 2, 3);
        window.measure(4, 4095, 4095, 4095);
        window.writeText("2,1");
        window.writeText("9:2,1,2");
        QCOMPARE(takeLog(),
                 (QStringList{ "[!contains(:)] \"2,1\"", "[fewer than four fields] \"9:2,1,2\"" }));
        QCOMPARE(window.colourOf(Home), Blue);
    }

    void theSamplesOfAnotherKeyAreDropped()
    {
        LearningWindow window;
        window.tap(Home);
        window.tap(Back);
        window.measure(2, 1, 0, 0);
        window.tap(Home);
        window.measure(2, 2, 0, 0);
        QVERIFY(takeLog().filter("initSampleKeys").isEmpty());
        QCOMPARE(window.samples(), QStringList("314,2,2,0,0"));
        QCOMPARE(window.sampleNumbers(), QList<int>{ 0 });
        window.tap(Back);
        window.release();
        QCOMPARE(window.learnedCount(), 0);
    }

    void aKeyThatIsTappedTwiceWaitsTwice()
    {
        LearningWindow window;
        window.tap(Home);
        window.tap(Back);
        window.tap(Home);
        window.measure(2, 100, 0, 0);
        pass(1000);
        window.tap(Home);
        window.measure(2, 200, 0, 0);
        window.release();
        QCOMPARE(window.learned(Home), QString("2,150,0,0"));
        QCOMPARE(window.waiting(), (Codes{ Back, Home, Home }));
        QCOMPARE(window.colourOf(Back), Blue);
        pass(3000); // the first taps time out
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(Home), Gray);
    }
};

QTEST_MAIN(TestLearning)
#include "tst_learning.moc"
