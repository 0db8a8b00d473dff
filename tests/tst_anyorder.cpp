#include "buttonstyles.h"
#include "headunit.h"

#include <QApplication>

#include <memory>
#include <random>

namespace {

constexpr int stepsPerStory = 2000;
constexpr int allowedGrowth = 1024; // in kilobytes
constexpr char longWait[] = "4200ms"; // Qt may let a timer of 4000 ms come 5 percent late
constexpr int spread = 20; // of the samples of one key

int learnings = 0; // in all stories

int residentKilobytes()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__arm__)
    return 0; // what was freed is kept for a while, and an emulator has memory of its own
#endif
    return QString(read("/proc/self/status")).section("VmRSS:", 1).section("kB", 0, 0).toInt();
}

// The measurement and, in each channel, what is up to `spread` above it.
bool isOf(const Measurement &centre, const QString &record)
{
    const QStringList fields = record.split(',');
    bool near = fields.value(0).toInt() == centre[0];
    for (int i = 1; i < 4; ++i) {
        const int distance = fields.value(i).toInt() - centre[static_cast<size_t>(i)];
        near = near && distance >= 0 && distance < spread;
    }
    return near;
}

// Taps, readings and time on a new unit, in an order that the seed decides. After every step it
// checks what must always hold.
class Story
{
public:
    explicit Story(unsigned seed) : random(seed) { }
    ~Story()
    {
        if (QTest::currentTestFailed())
            qWarning("The steps: %s", qPrintable(steps.join(' ')));
    }

    void tell()
    {
        for (int i = 0; i < stepsPerStory && !QTest::currentTestFailed(); ++i)
            takeStep();
        if (QTest::currentTestFailed())
            return;
        play(longWait);
        pass(4000); // the last notice goes, however late its time-out came
        QCOMPARE(QApplication::topLevelWidgets().size(), 1); // no dialog, no notice
    }

private:
    // Where the samples of a key will be.
    Measurement anyMeasurement() { return { 2 + below(2), below(4075), below(4075), below(4075) }; }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    void play(const QString &step)
    {
        steps << step;
        probe->way = static_cast<Way>(below(4));
        probe->play(step);
        check();
    }

    void takeStep()
    {
        const int choice = below(200);
        if (choice < 60)
            tapKey();
        else if (choice < 64 && !known.isEmpty())
            play(known.first()); // a collision
        else if (choice < 148)
            giveSample();
        else if (choice < 172)
            play(payloadOf({ 2 + below(2), 4095, 4095, 4095 }));
        else if (choice < 180) // invalid
            play(payloadOf({ 2 + below(2), below(4095), 4095, below(4097) - 1 }));
        else if (choice < 198)
            play(below(4) == 0 ? longWait : QString("%1ms").arg(below(1500)));
        else
            end(QStringList{ "save", "Yes", "No", "Escape" }.at(below(4)));
    }

    void tapKey()
    {
        const auto buttons = probe->window.findChildren<QPushButton *>();
        tapped = probe->keys.value(buttons.at(below(probe->keys.size())));
        if (!known.contains(tapped) && !probe->pending.contains(tapped))
            centres[tapped] = anyMeasurement();
        play(QString::number(tapped));
    }

    void giveSample()
    {
        Measurement values = centres.value(tapped, anyMeasurement());
        for (size_t i = 1; i < values.size(); ++i)
            values[i] += below(spread);
        play(payloadOf(values));
    }

    // By save, or by clear with this answer: in the question the driver goes on and time passes.
    void end(const QString &how)
    {
        tapped = 0;
        steps << how;
        const int code = exitCodeOf(how == "save" ? probe->save : probe->clear, [&] {
            probe->play("up 2,1,2,3 500ms");
            answer(how);
        });
        if (how == "Yes") {
            known.clear();
            QVERIFY(code == stillRunning && read(flagPath) == "11");
            QVERIFY(probe->learned.isEmpty() && probe->samples.isEmpty());
            return;
        }
        probe.reset();
        QVERIFY(code == 0 && read(flagPath) == "0");
        probe = std::make_unique<KeyMainWindowProbe>();
        if (how == "save")
            QCOMPARE(probe->learned, known);
        else if (!read(backupPath).isNull())
            QCOMPARE(read(configurationPath), read(backupPath));
        known = probe->learned;
    }

    void check()
    {
        const bool released = steps.last().endsWith(",4095,4095,4095");
        for (auto key = probe->keys.cbegin(); key != probe->keys.cend(); ++key) {
            const int code = key.value();
            const QString record = probe->learned.value(code);
            const bool blue = key.key()->styleSheet() == ButtonStyles::selected;
            QVERIFY(!blue || probe->pending.contains(code));
            if (record == known.value(code))
                continue;
            QVERIFY(code == tapped && released);
            QVERIFY2(isOf(centres.value(code), record), qPrintable(record));
            centres[code] = anyMeasurement(); // for its next samples
            ++learnings;
        }
        known = probe->learned;
        QVERIFY(steps.last() != longWait || probe->pending.isEmpty());
        takeLog();
    }

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe{ new KeyMainWindowProbe };
    QMap<int, Measurement> centres; // of each key's samples
    QMap<int, QString> known; // the records after the last step
    int tapped = 0; // 0 for save and clear
    QStringList steps;
};

} // namespace

class TestAnyOrder : public QObject
{
    Q_OBJECT

    const int stories = qMax(5, qgetenv("VELMORA_STORIES").toInt());
    int residentAtFirst = 0;

private slots:
    void story_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 1; seed <= stories; ++seed)
            QTest::newRow(qPrintable(QString::number(seed))) << seed;
    }
    void story()
    {
        QFETCH(int, seed);
        Story(static_cast<unsigned>(seed)).tell();
        if (seed == qMax(1, stories / 10))
            residentAtFirst = residentKilobytes();
    }

    void learnsWithoutGrowing()
    {
        const int growth = residentKilobytes() - residentAtFirst;
        qDebug("%d keys learned, %d kB more resident memory", learnings, growth);
        QVERIFY(growth < allowedGrowth && learnings > 0);
    }
};

QTEST_MAIN(TestAnyOrder)
#include "tst_anyorder.moc"
