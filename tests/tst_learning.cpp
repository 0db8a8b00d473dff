#include "headunit.h"

class TestLearning : public QObject
{
    Q_OBJECT

private slots:
    void goesByTheSteps_data() { addRows("steps"); }
    void goesByTheSteps()
    {
        QFETCH(QString, input);
        RunningUnit unit;
        unit.play(input);
        QTEST(unit.state(), "expected");
    }

    void logs_data() { addRows("log"); }
    void logs()
    {
        QFETCH(QString, input);
        RunningUnit unit;
        unit.play(input.section(' ', 0, -2));
        takeLog();
        unit.play(input.section(' ', -1));
        QTEST(takeLog().replace("[swc_print]", "+"), "expected");
    }

    void logsWhatIsNoReading()
    {
        RunningUnit unit;
        unit.receive("2,1200");
        unit.receive(QByteArray("16\0:2,1200,4094,4094", 20));
        unit.receive("");
        unit.window.onFileChange("missing");
        const QString line = "[swc_print][!contains(:)] \"%1\"|";
        QCOMPARE(takeLog(), line.arg("2,1200") + line.arg("16") + line.arg(""));
    }

    void everyKeyTimesOutFourSecondsAfterTheTap()
    {
        const QStringList keys =
            QString("314 Home 250 Back 148 Power 149 Mute 166 VolPlus 167 VolSubtract 232 Prev "
                    "233 Next 315 Src 157 Enter 347 Bluetooth 351 HangUp 325 Ilink 344 Siri "
                    "302 Music 226 Radio 155 Left 156 Right 153 Up 154 Down 326 Ams 247 PlayPause")
                .split(' ');
        QStringList names{ "public onFileChange(QString)", "private onTouchKeysClicked()" };
        for (int i = 0; i < keys.size(); i += 2) {
            const QString &code = keys.at(i);
            const QString name = "recorrect" + keys.at(i + 1) + "BtnStatus";
            names += "private " + name + "()";
            RunningUnit unit;
            unit.play(code + " 3999ms");
            QCOMPARE(unit.state(), QString("%1 blue; waits %1").arg(code));
            unit.play("1ms");
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
