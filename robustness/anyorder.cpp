#include "story.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>

// Tells stories, each with the next seed, until there were enough steps or one broke. A broken
// story is told again by its seed.

namespace {

constexpr int stepsPerStory = 2000;
constexpr int allowedGrowth = 1024; // in kilobytes

} // namespace

int main(int argc, char **argv)
{
    doWithoutScreen();
    QApplication application(argc, argv);
    QCommandLineParser parser;
    using Option = QCommandLineOption;
    parser.addOption(Option("steps", "How many taps, readings and pauses.", "number", "20000"));
    parser.addOption(Option("seed", "The first story.", "number", "1"));
    parser.process(application);
    const int steps = parser.value("steps").toInt();
    const unsigned firstSeed = parser.value("seed").toUInt();

    int residentAtFirst = 0;
    int learnings = 0;
    for (int taken = 0; taken < steps; taken += stepsPerStory) {
        const unsigned seed = firstSeed + static_cast<unsigned>(taken / stepsPerStory);
        Story story(seed);
        const QString fault = story.tell(qMin(stepsPerStory, steps - taken));
        learnings += story.learnedKeys();
        if (!fault.isEmpty()) {
            std::fprintf(stderr, "%s\nAgain: --seed %u --steps %d\n", fault.toUtf8().constData(),
                         seed, stepsPerStory);
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
