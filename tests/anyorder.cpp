#include "buttonstyles.h"
#include "headunit.h"

#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>

#include <cstdio>
#include <memory>
#include <random>

// Tells stories of taps, readings and time in an order that a seed decides, until there were enough
// steps or one broke. A broken story is told again by its seed.

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

// A new unit. After every step it checks what must always hold.
class Story
{
public:
    explicit Story(unsigned seed) : random(seed) { }

    // The steps and the fault behind them, or an empty text.
    QString tell(int stepCount)
    {
        for (int i = 0; i < stepCount && fault.isEmpty(); ++i)
            takeStep();
        play(longWait);
        pass(4000); // the last notice goes, however late its time-out came
        require(QApplication::topLevelWidgets().size() == 1, "dialogs and notices end");
        return fault;
    }

private:
    // Where the samples of a key will be.
    Measurement anyMeasurement() { return { 2 + below(2), below(4075), below(4075), below(4075) }; }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    void require(bool holds, const char *what)
    {
        if (!holds && fault.isEmpty())
            fault = steps.join(' ') + "\nBroken: " + what;
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
            require(code == stillRunning && read(flagPath) == "11", "Yes tells only the driver");
            require(probe->learned.isEmpty() && probe->samples.isEmpty(), "Yes forgets all");
            return;
        }
        probe.reset();
        require(code == 0 && read(flagPath) == "0", "save and No end the program");
        probe = std::make_unique<KeyMainWindowProbe>();
        if (how == "save")
            require(probe->learned == known, "the next start has what was saved");
        else if (!read(backupPath).isNull())
            require(read(backupPath) == read(configurationPath), "No brings the backup back");
        known = probe->learned;
    }

    void check()
    {
        const bool released = steps.last().endsWith(",4095,4095,4095");
        for (auto key = probe->keys.cbegin(); key != probe->keys.cend(); ++key) {
            const int code = key.value();
            const QString record = probe->learned.value(code);
            const bool blue = key.key()->styleSheet() == ButtonStyles::selected;
            require(!blue || probe->pending.contains(code), "a blue key waits");
            if (record == known.value(code))
                continue;
            require(code == tapped && released, "a key learns by its own release");
            require(isOf(centres.value(code), record), "a key learns from its own samples");
            centres[code] = anyMeasurement(); // for its next samples
            ++learnings;
        }
        known = probe->learned;
        require(steps.last() != longWait || probe->pending.isEmpty(), "selections time out");
        takeLog();
    }

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe{ new KeyMainWindowProbe };
    QMap<int, Measurement> centres; // of each key's samples
    QMap<int, QString> known; // the records after the last step
    int tapped = 0; // 0 for save and clear
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
    for (int taken = 0; taken < steps; taken += stepsPerStory, ++seed) {
        const QString fault = Story(seed).tell(qMin(stepsPerStory, steps - taken));
        if (!fault.isEmpty()) {
            std::fprintf(stderr, "%s\nAgain: --seed %u\n", qPrintable(fault), seed);
            return 1;
        }
        if (taken + stepsPerStory >= steps / 10 && residentAtFirst == 0)
            residentAtFirst = residentKilobytes();
    }
    const int growth = residentKilobytes() - residentAtFirst;
    std::fprintf(stderr, "%d steps, %d keys learned, %d kB more resident memory\n", steps,
                 learnings, growth);
    return growth < allowedGrowth && learnings > 0 ? 0 : 1;
}
