#include "androidtoast.h"
#include "buttonstyles.h"
#include "headunit.h"
#include "reading.h"

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

bool isAmong(const QString &record, const QList<Measurement> &samples)
{
    const QStringList fields = record.split(',');
    for (size_t i = 0; i < std::tuple_size<Measurement>::value; ++i) {
        const int value = fields.value(static_cast<int>(i)).toInt();
        const auto isBelow = [=](const Measurement &sample) { return sample[i] < value; };
        const auto isAbove = [=](const Measurement &sample) { return sample[i] > value; };
        if (samples.isEmpty() || std::all_of(samples.begin(), samples.end(), isBelow)
            || std::all_of(samples.begin(), samples.end(), isAbove))
            return false;
    }
    return true;
}

// A new unit; after every step it checks what must always hold.
class Story
{
public:
    explicit Story(unsigned seed) : random(seed) { }

    QString tell(int stepCount); // the fault and the steps before it, or an empty text
    int learnings = 0;

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    Measurement anywhere() { return { 2 + below(2), below(4095), below(4095), below(4095) }; }

    void takeStep();
    void tapKey();
    void tapSave();
    void tapClear();
    void reply(const QString &answerText);
    void startAgain();
    void giveSample();
    void giveRelease();
    void giveInvalid();
    void give(const Measurement &values);
    void letTimePass();
    void require(bool holds, const QString &what);
    void check();

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe{ new KeyMainWindowProbe };
    QMap<int, Measurement> centres; // what the next samples of a key are near to
    QMap<int, QList<Measurement>> samples; // of a key since its selection
    QMap<int, QString> known; // the records after the last step
    int tapped = 0; // 0 for save and clear
    int released = 0;
    QStringList steps;
    QString fault;
};

QString Story::tell(int stepCount)
{
    for (int i = 0; i < stepCount && fault.isEmpty(); ++i)
        takeStep();
    steps << "the end";
    pass(2 * timeOut); // the last time-outs show notices
    check();
    require(probe->pending.isEmpty(), "no key waits for ever");
    require(QApplication::topLevelWidgets().size() == 1, "dialogs and notices end");
    return fault.isEmpty()
        ? fault
        : steps.mid(qMax(0, steps.size() - shownSteps)).join('\n') + '\n' + fault;
}

void Story::takeStep()
{
    released = 0;
    const int choice = below(1000);
    if (choice < 300)
        tapKey();
    else if (choice < 740)
        giveSample();
    else if (choice < 860)
        giveRelease();
    else if (choice < 900)
        giveInvalid();
    else if (choice < 990)
        letTimePass();
    else if (choice < 995)
        tapSave();
    else
        tapClear();
    check();
}

void Story::tapKey()
{
    QList<int> codes = probe->keys.values(); // in the order of addresses
    std::sort(codes.begin(), codes.end());
    tapped = codes.at(below(codes.size()));
    steps << QString("tap %1").arg(tapped);
    centres[tapped] = anywhere();
    if (!known.contains(tapped) && !probe->pending.contains(tapped))
        samples.remove(tapped);
    tap(probe->button(tapped));
}

void Story::giveSample()
{
    Measurement values = centres.value(tapped);
    if (below(20) == 0 && !known.isEmpty()) { // most likely a collision
        const QStringList record = known.first().split(',');
        for (size_t i = 0; i < values.size(); ++i)
            values[i] = record.at(static_cast<int>(i)).toInt();
    }
    for (size_t i = 1; i < values.size(); ++i)
        values[i] = qBound(0, values[i] + below(spread), releaseValue - 1);
    if (tapped != 0 && !probe->pending.isEmpty())
        samples[tapped] += values;
    give(values);
}

void Story::giveRelease()
{
    released = tapped;
    give({ 2 + below(2), releaseValue, releaseValue, releaseValue });
}

void Story::giveInvalid()
{
    Measurement values = anywhere();
    values[static_cast<size_t>(below(4))] = below(2) == 0 ? releaseValue + below(2) : -1;
    give(values);
}

void Story::give(const Measurement &values)
{
    steps << "reading " + payloadOf(values);
    KeyMainWindowProbe::receive(readingText(payloadOf(values)), static_cast<Way>(below(4)));
}

void Story::letTimePass()
{
    const bool isLong = below(4) == 0;
    const int duration = isLong ? timeOut : below(1500);
    steps << QString("%1 ms").arg(duration);
    pass(duration);
    require(!isLong || probe->pending.isEmpty(), "every selection times out");
}

void Story::tapSave()
{
    steps << "tap save";
    require(exitCodeOf([this] { tap(probe->save); }) == 0, "save ends the program");
    const QMap<int, QString> saved = known;
    startAgain();
    require(known == saved, "the next start has what was saved");
}

void Story::tapClear()
{
    steps << "tap clear";
    tapped = 0;
    const QString answerText = QStringList{ "Yes", "No", "Escape" }.at(below(3));
    const int code = exitCodeOfClear(probe->clear, [&] { reply(answerText); });
    if (answerText == "Yes") {
        require(code == stillRunning, "Yes does not end the program");
        require(read(flagPath) == "11", "the driver is told that all keys are gone");
        require(probe->learned.isEmpty() && probe->samples.isEmpty(), "Yes forgets all");
        known.clear();
        return;
    }
    require(code == 0, "No ends the program");
    require(read(backupPath).isNull() || read(backupPath) == read(configurationPath),
            "No brings the backup back");
    startAgain();
}

// Inside the question time passes and the driver goes on.
void Story::reply(const QString &answerText)
{
    for (int i = below(4); i > 0; --i) {
        if (below(2) == 0)
            giveRelease();
        else
            letTimePass();
    }
    steps << answerText;
    answer(answerText);
}

void Story::startAgain()
{
    probe.reset();
    require(read(flagPath) == "0", "the driver is told that the program has ended");
    pass(timeOut);
    require(QApplication::topLevelWidgets().isEmpty(), "notices end");
    probe = std::make_unique<KeyMainWindowProbe>();
    known = probe->learned;
    samples.clear();
    tapped = 0;
}

void Story::require(bool holds, const QString &what)
{
    if (!holds && fault.isEmpty())
        fault = "Broken: " + what;
}

void Story::check()
{
    const QMap<int, QString> records = probe->learned;
    for (auto key = known.cbegin(); key != known.cend(); ++key)
        require(records.contains(key.key()), QString("%1 stays learned").arg(key.key()));
    for (auto key = records.cbegin(); key != records.cend(); ++key) {
        const int code = key.key();
        if (key.value() == known.value(code))
            continue;
        require(code == released, QString("%1 learns from its own release").arg(code));
        require(isAmong(key.value(), samples.take(code)),
                QString("%1 learns %2 from its own samples").arg(code).arg(key.value()));
        ++learnings;
    }
    known = records;
    for (auto key = probe->keys.cbegin(); key != probe->keys.cend(); ++key)
        require(key.key()->styleSheet() != ButtonStyles::selected
                    || probe->pending.contains(key.value()),
                QString("%1 is blue and waits").arg(key.value()));
    takeLog();
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
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
