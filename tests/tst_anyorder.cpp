#include "buttonstyles.h"
#include "headunit.h"

#include <QApplication>

#include <memory>
#include <random>

namespace {

const int stories = qMax(5, qgetenv("VELMORA_STORIES").toInt());
constexpr int stepsPerStory = 2000;
constexpr int allowedGrowth = 1024; // in kilobytes
constexpr char longWait[] = "4200ms"; // Qt may let a timer of 4000 ms come 5 percent late
constexpr int spread = 20; // of the samples of one key

// Each sample of a key is above the key's values, by the same in all channels.
QString sampleOf(const Measurement &key, int offset)
{
    return payloadOf({ key[0], key[1] + offset, key[2] + offset, key[3] + offset });
}

// Taps, readings and time on a new unit, in an order that the seed decides. After every step it
// checks what must always hold.
struct Story
{
    explicit Story(unsigned seed) : random(seed) { }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    Measurement anyKey() { return { 2 + below(2), below(4075), below(4075), below(4075) }; }

    void takeStep()
    {
        const auto buttons = probe->window.findChildren<QPushButton *>();
        const int line = 2 + below(2);
        const QString choices[] = {
            QString::number(probe->keys.value(buttons.at(below(probe->keys.size())))),
            sampleOf(centres.value(tapped, anyKey()), below(spread)),
            known.isEmpty() ? longWait : known.first(), // a collision
            payloadOf({ line, 4095, 4095, 4095 }),
            payloadOf({ line, below(4095), 4095, below(4097) - 1 }), // invalid
            QString("%1ms").arg(below(1500)),
            longWait,
        };
        const int choice = std::discrete_distribution<int>{ 60, 84, 4, 24, 8, 14, 4, 2 }(random);
        if (choice < 7)
            play(choices[choice]);
        else
            end(QStringList{ "save", "Yes", "No", "Escape" }.at(below(4)));
    }

    void play(const QString &step)
    {
        steps << step;
        const bool isTap = step.toInt() != 0;
        if (isTap)
            tapped = step.toInt();
        if (isTap && !known.contains(tapped) && !probe->pending.contains(tapped))
            centres[tapped] = anyKey();
        probe->way = static_cast<Way>(below(4));
        probe->play(step);
        takeLog();

        for (auto key = probe->keys.cbegin(); key != probe->keys.cend(); ++key)
            QVERIFY(key.key()->styleSheet() != ButtonStyles::selected
                    || probe->pending.contains(key.value()));
        QVERIFY(step != longWait || probe->pending.isEmpty());
        if (probe->learned != known)
            checkLearned();
    }

    // A key learns only by its own release, and from its own samples.
    void checkLearned()
    {
        const QString record = probe->learned.value(tapped);
        known[tapped] = record;
        QCOMPARE(probe->learned, known);
        QVERIFY(steps.last().endsWith(",4095,4095,4095"));
        const Measurement centre = centres.value(tapped);
        const int offset = record.section(',', 1, 1).toInt() - centre[1];
        QVERIFY(offset >= 0 && offset < spread);
        QCOMPARE(record, sampleOf(centre, offset));
        centres[tapped] = anyKey(); // for its next samples
        ++learnings;
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
            QVERIFY(code == stillRunning && read(flagPath) == "11" && probe->samples.isEmpty());
        } else {
            probe.reset();
            QVERIFY(code == 0 && read(flagPath) == "0");
            probe = std::make_unique<KeyMainWindowProbe>();
        }
        if (how == "No" || how == "Escape") {
            known = probe->learned;
            QVERIFY(read(backupPath).isNull() || read(backupPath) == read(configurationPath));
        }
        QCOMPARE(probe->learned, known);
    }

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe{ new KeyMainWindowProbe };
    QMap<int, Measurement> centres; // of each key's samples
    QMap<int, QString> known; // the records after the last step
    int tapped = 0; // 0 for save and clear
    int learnings = 0;
    QStringList steps;
};

} // namespace

// A row is a story, and its name is the seed.
class TestAnyOrder : public QObject
{
    Q_OBJECT

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
        Story story(static_cast<unsigned>(seed));
        for (int i = 0; i < stepsPerStory && !QTest::currentTestFailed(); ++i)
            story.takeStep();
        if (QTest::currentTestFailed())
            return qWarning("The steps: %s", qPrintable(story.steps.join(' ')));
        story.play(longWait);
        pass(4000); // the last notice goes, however late its time-out came
        QCOMPARE(QApplication::topLevelWidgets().size(), 1); // no notice, no question
        QVERIFY(story.learnings > 0);

// What was freed is kept for a while, and an emulator has memory of its own.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__arm__)
        static int residentAtFirst = 0;
        const QString status = read("/proc/self/status");
        const int resident = status.section("VmRSS:", 1).section("kB", 0, 0).toInt();
        if (seed <= stories / 10 || residentAtFirst == 0)
            residentAtFirst = resident;
        QVERIFY(resident - residentAtFirst < allowedGrowth);
#endif
    }
};

QTEST_MAIN(TestAnyOrder)
#include "tst_anyorder.moc"
