#include "headunit.h"
#include "records.h"

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

    // 4000.4999 is 4000.5 there.
    void meansAreOfSinglePrecision()
    {
        QMap<int, QString> samples;
        for (int i = 0; i < 10000; ++i)
            samples.insert(i, i < 4999 ? "9,2,4001,0,0" : "9,2,4000,0,0");
        QCOMPARE(learnedRecordFrom(samples), QString("2,4001,0,0"));
    }
};

QTEST_MAIN(TestLearning)
#include "tst_learning.moc"
