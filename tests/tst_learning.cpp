#include "headunit.h"

class TestLearning : public QObject
{
    Q_OBJECT

private slots:
    void goesByTheSteps_data()
    {
        addRows(R"(
collecting, but nothing twice: 314 2,1,2,3 2,1,2,3 3,4,5,6 => 314 blue; waits 314; sample 0; sample 2; next 3
learned: 314 2,1200,9,9 2,1203,9,9,7 up => 314 green; 314=2,1202,9,9; black SUCCESS.
a release without samples: 314 3,4095,4095,4095 => red FAILED.
a collision: 250=2,1200,99,9 314 2,1260,39,9 => 250=2,1200,99,9; waits 314; red REPEAT.
learned after it: 250=2,9,9,9 314 2,9,9,9 3000ms 2,70,9,9 3,8,9,9 up => 314 green; 250=2,9,9,9; 314=2,39,9,9; black SUCCESS.
an invalid reading: 314 2,1,2,3 2,1,4095,4095 => waits 314; sample 0; next 1; red FAILED.
learned after it, the notice dropped: 314 2,1,2,3 2,4095,4095,1 up => 314 green; 314=2,1,2,3; red FAILED.
other key lines, fewer than four fields: 314 4,4095,4095,4095 1,1,2,3 2,4095,4095 2,1,2 => 314 blue; waits 314
readings after clear: 314 2,1,2,3 clear up 2,1,2,3 => waits 314
a tap on a learned key: 314=2,1,2,3 314 => 314=2,1,2,3; red LEARNED.
readings go to the last: 314 250 2,1,2,3 up => 314 blue; 250 green; 250=2,1,2,3; waits 314; black SUCCESS.
a key tapped twice waits on: 314 314 2,1,2,3 up => 314 green; 314=2,1,2,3; waits 314; black SUCCESS.
a learned key is learned anew: 314=2,1,2,3 250 314 3000ms 2,1,2,99 up => 314 green; 250 blue; 314=2,1,2,99; waits 250; black SUCCESS.
samples outlive the time-out: 314 2,1,2,3 4000ms => sample 0; next 1; red NO LEARNING.
but not the next tap on the key: 314 2,1,2,3 7000ms 314 up => red FAILED.
a second tap keeps the samples: 314 2,100,0,0 1000ms 314 2,200,0,0 3000ms up => 314 green; 314=2,150,0,0; red NO LEARNING.
another's samples are dropped: 314 250 2,1,0,0 314 2,2,0,0 up => 314 green; 250 blue; 314=2,2,0,0; waits 250; waits 314; black SUCCESS.
and are no record: 314 250 2,1,2,3 314 up => 250 blue; waits 250; waits 314; red FAILED.
time-out of one tap of two: 154 1000ms 247 1000ms 154 2000ms => 247 blue; waits 247; waits 154; red NO LEARNING.
time-out after the release: 314 2,1,2,3 up 3000ms 250 1000ms => 314 green; 250 blue; 314=2,1,2,3; waits 250
time-out after clear: 314 clear 4000ms => red NO LEARNING.
selected again after clear: 314=2,1,2,3 clear 314 => 314 blue; waits 314)");
    }
    void goesByTheSteps()
    {
        QFETCH(QString, input);
        RunningUnit unit;
        unit.play(input);
        QTEST(unit.state(), "expected");
    }

    void logs_data() // of the last step, "+" for the tag
    {
        addRows(R"(
selected: 314 =>
selected with samples left behind: 314 2,1,2,3 4000ms 314 =>
before the first tap: 2,1,2,3 =>
another key line: 314 4,1,2,3 =>
after clear: 314 clear 2,1,2,3 =>
after save: 314 save 2,1,2,3 =>
the first sample: 314 2,1,2,3 => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[isChuanKey][mapSwcKeys' size is empty]|+[func:insertSampleKeys][key:0, value(314,2,1,2,3)][size:1]|
the same again: 250=3,1,2,3 314 2,1,2,3 2,1,2,3 => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[ChongFuKeys...]|
learned: 314 2,1,2,3 up => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[line:LINE][Velmora 314 is success!] GREEN...|+[func:initSampleKeys][mapSampleKeys' size:0]|+[onFileChange LINE] remove:314|
no samples: 314 up => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[func:insertSwcKeys][line:LINE][mapSampleKeys is empty]|+[line:LINE][Velmora 314 is fail!] GRAY...|+[onFileChange LINE] remove:314|
invalid: 314 2,1,2,4095 => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[line:LINE][Velmora 314 is fail!] GRAY...|
a collision: 250=2,1,2,3 314 2,1,2,3 => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():1|+[line:LINE][Velmora 314 is CHUAN!] GRAY...|
nothing waits: 314=2,1,2,3 314 up => +[onFileChange LINE] validKey:314 clickAndValidKeys.size():0|+[onFileChange LINE] NO BUTTON is pressed|
three fields: 314 2,1,2 => +[fewer than four fields] "5:2,1,2"|
time-out: 314 4000ms => +[recorrectBtnStatus LINE] remove:314|+[recorrectBtnStatus LINE] remove:314|)");
    }
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
