#include "learningwindow.h"

using Codes = QList<int>;

// Selections that overlap, and the time-out slot of each key.
class TestTimeOuts : public QObject
{
    Q_OBJECT

private slots:
    void theSecondTapOnAKeyKeepsTheSamples()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 100, 0, 0);
        pass(1000);
        window.tap(Home);
        window.measure(2, 200, 0, 0);
        pass(3000); // the first tap times out
        QCOMPARE(window.colourOf(Home), Gray);
        QCOMPARE(window.waiting(), Codes{ Home });
        window.release();
        QCOMPARE(window.learned(Home), QString("2,150,0,0"));
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.waiting(), Codes());
    }

    void aReleaseEndsOneOfTwoSelections()
    {
        LearningWindow window;
        window.tap(Down);
        pass(1000);
        window.tap(PlayPause);
        window.tap(Down);
        window.measure(2, 1, 2, 3);
        window.release();
        QCOMPARE(window.waiting(), (Codes{ PlayPause, Down }));
        pass(3000); // the first tap times out, and ends what the second has left
        QCOMPARE(window.waiting(), Codes{ PlayPause });
        QCOMPARE(window.colourOf(Down), Gray);
        QCOMPARE(window.learned(Down), QString("2,1,2,3"));
        QCOMPARE(window.colourOf(PlayPause), Blue);
    }

    void aTimeOutAfterTheReleaseChangesNothing()
    {
        LearningWindow window;
        window.tap(Home);
        window.measure(2, 1, 2, 3);
        window.release();
        pass(3000);
        window.tap(Back);
        takeLog();
        pass(1000);
        QCOMPARE(window.colourOf(Home), Green);
        QCOMPARE(window.waiting(), Codes{ Back });
        QCOMPARE(window.notice(), QString());
        QCOMPARE(takeLog(), QStringList());
    }

    void everyKeyHasATimeOutSlot_data()
    {
        QTest::addColumn<int>("code");
        QTest::newRow("Home") << 314;
        QTest::newRow("Back") << 250;
        QTest::newRow("Power") << 148;
        QTest::newRow("Mute") << 149;
        QTest::newRow("VolPlus") << 166;
        QTest::newRow("VolSubtract") << 167;
        QTest::newRow("Prev") << 232;
        QTest::newRow("Next") << 233;
        QTest::newRow("Src") << 315;
        QTest::newRow("Enter") << 157;
        QTest::newRow("Bluetooth") << 347;
        QTest::newRow("HangUp") << 351;
        QTest::newRow("Ilink") << 325;
        QTest::newRow("Siri") << 344;
        QTest::newRow("Music") << 302;
        QTest::newRow("Radio") << 226;
        QTest::newRow("Left") << 155;
        QTest::newRow("Right") << 156;
        QTest::newRow("Up") << 153;
        QTest::newRow("Down") << 154;
        QTest::newRow("Ams") << 326;
        QTest::newRow("PlayPause") << 247;
    }
    void everyKeyHasATimeOutSlot()
    {
        QFETCH(int, code);
        LearningWindow window;
        window.tap(code);
        pass(4000);
        QCOMPARE(window.waiting(), Codes());

        window.tap(code);
        const QByteArray slot = QByteArray("recorrect") + QTest::currentDataTag() + "BtnStatus";
        QVERIFY2(QMetaObject::invokeMethod(&window, slot), slot);
        QCOMPARE(window.waiting(), Codes());
        QCOMPARE(window.colourOf(code), Gray);
    }

    void theSlotsKeepTheirOrder()
    {
        const QMetaObject &type = KeyMainWindow::staticMetaObject;
        QStringList names;
        for (int i = type.methodOffset(); i < type.methodCount(); ++i)
            names += type.method(i).methodSignature();
        QCOMPARE(names.size(), 24);
        QCOMPARE(names.mid(0, 3),
                 (QStringList{ "onFileChange(QString)", "onTouchKeysClicked()",
                               "recorrectHomeBtnStatus()" }));
        QCOMPARE(names.last(), QString("recorrectPlayPauseBtnStatus()"));
    }
};

QTEST_MAIN(TestTimeOuts)
#include "tst_timeouts.moc"
