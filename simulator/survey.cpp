#include "configuration.h"
#include "driver.h"
#include "records.h"

#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QString>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <numeric>

namespace {

constexpr char description[] =
    R"(Random wheels are learned by the application's own functions, and new presses of every key
decoded from the configuration that it writes. The rows group the wheels by their smallest spacing
over the standard deviation of their noise; drift is up to the noise, bounce up to four times. A
key too close to a learned one on all channels is refused.)";

constexpr int readingsOfLearning = 8;
constexpr int pressesOfKey = 4;
constexpr int rowHeight = 2; // of spacing / noise

// Presses decoded as the key itself, as another, as none, and those of a refused key.
using Outcome = std::array<int, 4>;

// The keys of a line stand on one channel, two of them or the lowest and 0 as close as `spacing`;
// a second channel is tighter, the third is idle.
void addLine(Wheel *wheel, int line, int count, double spacing, Chance *chance)
{
    const double tightness = between(0.1, 0.6, chance);
    const double slack = (idleValue - spacing * (count + 1)) / count;
    const int channel = static_cast<int>(between(0, 3, chance));
    const int closest = static_cast<int>(between(0, count, chance));
    double place = 0;
    for (int i = 0; i < count; ++i) {
        place += spacing + (i == closest ? 0 : between(0, slack, chance));
        WheelKey key;
        key.code = 100 * line + i;
        key.name = QString("key%1").arg(key.code);
        key.contact = { { line, idleValue, idleValue, idleValue } };
        key.contact[1 + channel] = qRound(place);
        key.contact[1 + (channel + 1) % 3] = qRound(place * tightness);
        wheel->keys.append(key);
    }
}

Wheel randomWheel(double spacingToNoise, Chance *chance)
{
    Wheel wheel;
    const int line2Count = static_cast<int>(between(2, 12, chance));
    const int line3Count = static_cast<int>(between(2, 12, chance));
    const double spacing = between(20, idleValue / (1.0 + qMax(line2Count, line3Count)), chance);
    wheel.noise = spacing / spacingToNoise;
    wheel.drift = between(0, wheel.noise, chance);
    wheel.bounce = between(0, 4 * wheel.noise, chance);
    addLine(&wheel, 2, line2Count, spacing, chance);
    addLine(&wheel, 3, line3Count, spacing, chance);
    return wheel;
}

// A key keeps the samples of one press: none that collides, none twice.
QMap<int, QString> learn(const Wheel &wheel, Chance *chance)
{
    QMap<int, QString> learned;
    for (const WheelKey &key : wheel.keys) {
        const double drift = between(-wheel.drift, wheel.drift, chance);
        QMap<int, QString> samples;
        for (int i = 0; i < readingsOfLearning; ++i) {
            const QByteArray payload = payloadOf(measure(wheel, key, drift, i, chance));
            const QString sample = sampleRecord(key.code, QString::fromLatin1(payload));
            if (std::none_of(learned.begin(), learned.end(),
                             [&sample](const QString &record) {
                                 return collides(RecordFields(sample), RecordFields(record));
                             })
                && !samples.values().contains(sample))
                samples.insert(i, sample);
        }
        if (!samples.isEmpty())
            learned.insert(key.code, learnedRecordFrom(samples));
    }
    return learned;
}

Outcome survey(const Wheel &wheel, bool listPresses, Chance *chance)
{
    const QMap<int, QString> learned = learn(wheel, chance);
    const QByteArray text =
        configurationText(learned, selectChannel(learned, 2), selectChannel(learned, 3));
    const QJsonObject configuration = QJsonDocument::fromJson(text).object();
    Outcome outcome{};
    for (const WheelKey &key : wheel.keys) {
        for (int i = 0; i < pressesOfKey; ++i) {
            const int code = decode(settledPress(wheel, key, chance), configuration);
            ++outcome[!learned.contains(key.code) ? 3 : code == key.code ? 0 : code == 0 ? 2 : 1];
            if (listPresses)
                std::puts(qPrintable(decodedText(key, wheel.functionName(code), configuration)));
        }
    }
    return outcome;
}

void surveyWheels(quint32 seed, int count, bool listFailures)
{
    QMap<int, Outcome> rows;
    for (int i = 0; i < count; ++i, ++seed) {
        Chance chance(seed);
        const double spacingToNoise = between(1, 30, &chance);
        const Wheel wheel = randomWheel(spacingToNoise, &chance);
        const Outcome outcome = survey(wheel, count == 1, &chance);
        Outcome &row = rows[static_cast<int>(spacingToNoise) / rowHeight * rowHeight];
        std::transform(outcome.begin(), outcome.end(), row.begin(), row.begin(), std::plus<>());
        if (listFailures && outcome[0] < pressesOfKey * wheel.keys.size())
            std::printf("failure: --wheels 1 --seed %u\n", seed);
    }
    std::puts("spacing/noise   presses    itself   another      none   refused");
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const int presses = std::accumulate(row->begin(), row->end(), 0);
        std::printf("%6d to %2d %10d", row.key(), row.key() + rowHeight, presses);
        for (const int part : *row)
            std::printf("%9.3f%%", 100.0 * part / presses);
        std::puts("");
    }
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    using Option = QCommandLineOption;
    parser.addOption(
        Option("seed", "Seed of the first wheel, the next has the next.", "number", "1"));
    parser.addOption(Option("wheels", "How many; 1 shows all presses.", "number", "10000"));
    parser.addOption(Option("failures", "Also list the seed of every failure."));
    parser.process(application);

    bool seedGood = false;
    const quint32 seed = parser.value("seed").toUInt(&seedGood);
    const int wheels = parser.value("wheels").toInt();
    if (!seedGood || wheels < 1 || !parser.positionalArguments().isEmpty()) {
        std::fputs("--seed and --wheels want whole numbers, see --help\n", stderr);
        return 1;
    }
    surveyWheels(seed, wheels, parser.isSet("failures"));
    return 0;
}
