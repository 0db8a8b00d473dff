#include "androidtoast.h"
#include "buttonstyles.h"
#include "headunit.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>

// Tells stories of taps, readings and time in an order that a seed decides, until there were enough
// steps or one broke. A broken story is told again by its seed.

namespace {

constexpr int stepsPerStory = 2000;
constexpr int shownSteps = 20;
constexpr int allowedGrowth = 1024; // in kilobytes
constexpr int timeOut = 4200; // Qt may let a timer of 4000 ms come 5 percent late
constexpr int spread = 20; // of the samples of one key

int residentKilobytes()
{
#ifdef __SANITIZE_ADDRESS__
    return 0; // what was freed is kept for a while
#endif
    return QString(read("/proc/self/status")).section("VmRSS:", 1).section("kB", 0, 0).toInt();
}

// The measurement and, in each channel, what is up to `spread` above it.
bool isOf(const Measurement &centre, const QString &record)
{
    const QStringList fields = record.split(',');
    bool near = fields.value(0).toInt() == centre[0];
    for (size_t i = 1; i < centre.size(); ++i) {
        const int distance = fields.value(static_cast<int>(i)).toInt() - centre[i];
        near = near && distance >= 0 && distance < spread;
    }
    return near;
}

// A new unit. After every step it checks what must always hold.
class Story
{
public:
    explicit Story(unsigned seed) : random(seed) { }

    // The fault and the steps before it, or an empty text.
    QString tell(int stepCount)
    {
        for (int i = 0; i < stepCount && fault.isEmpty(); ++i)
            takeStep();
        play(QString("%1ms").arg(2 * timeOut)); // the last time-outs show notices
        require(probe->pending.isEmpty(), "no key waits for ever");
        require(QApplication::topLevelWidgets().size() == 1, "dialogs and notices end");
        return fault;
    }

    int learnings = 0;

private:
    // Of a key that is not held yet: its samples are near to it.
    Measurement anyMeasurement() { return { 2 + below(2), below(4075), below(4075), below(4075) }; }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    void require(bool holds, const QString &what)
    {
        if (!holds && fault.isEmpty())
            fault = QStringList(steps.mid(qMax(0, steps.size() - shownSteps))).join('\n')
                + "\nBroken: " + what;
    }

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
        else if (choice < 148)
            giveSample();
        else if (choice < 172)
            giveRelease();
        else if (choice < 180) // invalid
            play(payloadOf({ 2 + below(2), below(4095), 4095, below(4097) - 1 }));
        else if (choice < 198)
            play(QString("%1ms").arg(below(4) == 0 ? timeOut : below(1500)));
        else
            end(QStringList{ "save", "Yes", "No", "Escape" }.at(below(4)));
    }

    void tapKey()
    {
        QList<int> codes = probe->keys.values(); // in the order of addresses
        std::sort(codes.begin(), codes.end());
        tapped = codes.at(below(codes.size()));
        if (!known.contains(tapped) && !probe->pending.contains(tapped))
            centres[tapped] = anyMeasurement();
        play(QString::number(tapped));
    }

    void giveSample()
    {
        Measurement values = centres.value(tapped);
        if (below(20) == 0 && !known.isEmpty()) { // a collision
            for (int i = 0; i < 4; ++i)
                values[static_cast<size_t>(i)] = known.first().section(',', i, i).toInt();
        }
        for (size_t i = 1; i < values.size(); ++i)
            values[i] += below(spread);
        play(payloadOf(values));
    }

    void giveRelease()
    {
        released = tapped;
        play(payloadOf({ 2 + below(2), 4095, 4095, 4095 }));
        released = 0;
    }

    // By save, or by clear with this answer: in the question the driver goes on and time passes.
    void end(const QString &how)
    {
        const bool saves = how == "save";
        tapped = 0;
        const auto reply = [&] {
            play("up 2,1,2,3 500ms");
            answer(how);
        };
        const int code = exitCodeOf(saves ? probe->save : probe->clear, reply);
        steps << how;
        if (how == "Yes") {
            known.clear();
            require(code == stillRunning && read(flagPath) == "11", "Yes tells only the driver");
            require(probe->learned.isEmpty() && probe->samples.isEmpty(), "Yes forgets all");
            return;
        }
        require(code == 0, "save and No end the program");
        require(saves || read(backupPath).isNull() || read(backupPath) == read(configurationPath),
                "No brings the backup back");
        probe.reset();
        require(read(flagPath) == "0", "the driver is told that the program has ended");
        pass(timeOut);
        require(QApplication::topLevelWidgets().isEmpty(), "notices end");
        probe = std::make_unique<KeyMainWindowProbe>();
        require(!saves || probe->learned == known, "the next start has what was saved");
        known = probe->learned;
    }

    void check()
    {
        const QMap<int, QString> records = probe->learned;
        for (auto key = known.cbegin(); key != known.cend(); ++key)
            require(records.contains(key.key()), QString("%1 stays learned").arg(key.key()));
        for (auto key = records.cbegin(); key != records.cend(); ++key) {
            if (key.value() == known.value(key.key()))
                continue;
            require(key.key() == released, QString("%1 learns by its release").arg(key.key()));
            require(isOf(centres.value(key.key()), key.value()),
                    QString("%1 learns from its samples").arg(key.key()));
            centres[key.key()] = anyMeasurement(); // for its next samples
            ++learnings;
        }
        known = records;
        for (auto key = probe->keys.cbegin(); key != probe->keys.cend(); ++key)
            require(key.key()->styleSheet() != ButtonStyles::selected
                        || probe->pending.contains(key.value()),
                    QString("%1 is blue and waits").arg(key.value()));
        require(steps.last() != QString("%1ms").arg(timeOut) || probe->pending.isEmpty(),
                "every selection times out");
        takeLog();
    }

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe{ new KeyMainWindowProbe };
    QMap<int, Measurement> centres; // of each key's samples
    QMap<int, QString> known; // the records after the last step
    int tapped = 0; // 0 for save and clear
    int released = 0;
    QStringList steps;
    QString fault;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    using Option = QCommandLineOption;
    parser.addOption(Option("steps", "How many taps, readings and pauses.", "number", "20000"));
    parser.addOption(Option("seed", "The first story.", "number", "1"));
    parser.process(application);
    const int steps = parser.value("steps").toInt();
    unsigned seed = parser.value("seed").toUInt();
    if (!std::freopen("/dev/null", "w", stdout)) // each window writes a line
        return 1;

    int residentAtFirst = 0;
    int learnings = 0;
    for (int taken = 0; taken < steps; taken += stepsPerStory, ++seed) {
        Story story(seed);
        const QString fault = story.tell(qMin(stepsPerStory, steps - taken));
        learnings += story.learnings;
        if (!fault.isEmpty()) {
            std::fprintf(stderr, "%s\nAgain: --seed %u --steps %d\n", qPrintable(fault), seed,
                         stepsPerStory);
            return 1;
        }
        if (taken >= steps / 10 && residentAtFirst == 0)
            residentAtFirst = residentKilobytes();
    }
    const int growth = residentKilobytes() - residentAtFirst;
    std::fprintf(stderr, "%d steps, %d keys learned, %d kB more resident memory\n", steps,
                 learnings, growth);
    return growth < allowedGrowth && learnings > 0 ? 0 : 1;
}
