#include "headunit.h"

class TestLearning : public QObject
{
    Q_OBJECT

private slots:
    void goesByTheSteps_data() { addRows("steps"); }
    void goesByTheSteps()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        RunningUnit unit;
        unit.play(input.section(' ', 0, -2));
        takeLog();
        unit.play(input.section(' ', -1));
        QCOMPARE(unit.state(), expected.section(" =>", 0, 0));
        if (expected.contains(" =>"))
            QCOMPARE(takeLog().replace("[swc_print]", "+"), expected.section(" =>", 1).trimmed());
    }

    void everyKeyTimesOutByASlotOfItsOwn()
    {
        const QString keys =
            "314 Home 250 Back 148 Power 149 Mute 166 VolPlus 167 VolSubtract 232 Prev 233 Next "
            "315 Src 157 Enter 347 Bluetooth 351 HangUp 325 Ilink 344 Siri 302 Music 226 Radio "
            "155 Left 156 Right 153 Up 154 Down 326 Ams 247 PlayPause";
        QStringList names{ "public onFileChange(QString)", "private onTouchKeysClicked()" };
        for (int i = 0; i <= keys.count(' '); i += 2) {
            const QString code = keys.section(' ', i, i);
            const QString name = "recorrect" + keys.section(' ', i + 1, i + 1) + "BtnStatus";
            names += "private " + name + "()";
            RunningUnit unit;
            unit.play(code + " 4000ms");
            QCOMPARE(unit.state(), QString("red NO LEARNING."));
            unit.play("3000ms " + code);
            QVERIFY2(QMetaObject::invokeMethod(&unit.window, qPrintable(name)), qPrintable(name));
            QCOMPARE(unit.state(), QString("red NO LEARNING."));
        }
        QCOMPARE(slotsOf(KeyMainWindow::staticMetaObject), names);
    }
};

QTEST_MAIN(TestLearning)
#include "tst_learning.moc"
