#include "configuration.h"
#include "decoder.h"
#include "driver.h"
#include "randomwheel.h"
#include "reading.h"
#include "records.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>

// How much noise may a wheel have? Random wheels are learned by the application's own functions;
// the stand-in's driver decodes new presses of them from the written configuration.

namespace {

constexpr int readingsOfLearning = 8;
constexpr int pressesOfKey = 4;

struct Outcome
{
    int keys = 0;
    int refused = 0; // keys whose every reading collided with a learned key
    int itself = 0;
    int another = 0;
    int none = 0;

    bool isPerfect() const { return refused + another + none == 0; }
};

struct Bucket
{
    double below; // smallest spacing / noise
    int wheels;
    Outcome sum;
    qint64 failingSeed; // of the first wheel that is not perfect; -1 for none
};

// The samples that the application keeps of one press: none that collides, none twice.
QMap<int, QString> samplesOf(const WheelKey &key, Press press, const QMap<int, QString> &learned)
{
    QMap<int, QString> samples;
    for (int i = 0; i < readingsOfLearning; ++i) {
        Reading reading;
        parseReading(readingText(press.next()), &reading);
        const QString sample = sampleRecord(key.code, reading.payload);
        const bool collided =
            std::any_of(learned.begin(), learned.end(),
                        [&sample](const QString &record) { return collides(sample, record); });
        if (!collided && !samples.values().contains(sample))
            samples.insert(i, sample);
    }
    return samples;
}

Decoder learn(const Wheel &wheel, Noise *noise)
{
    QMap<int, QString> learned;
    for (const WheelKey &key : wheel.keys) {
        const QMap<int, QString> samples = samplesOf(key, Press(wheel, key, noise), learned);
        if (!samples.isEmpty())
            learned.insert(key.code, learnedRecordFrom(samples));
    }
    return Decoder(configurationText(learned, decodingOf(selectChannel(learned, 2)),
                                     decodingOf(selectChannel(learned, 3))));
}

// Presses every key; a press of a refused key can't come out right and is not counted twice.
Outcome pressAll(const Wheel &wheel, const Decoder &decoder, Noise *noise, QTextStream *details)
{
    Outcome outcome;
    outcome.keys = wheel.keys.size();
    for (const WheelKey &key : wheel.keys) {
        QStringList decodedAs;
        for (int i = 0; i < pressesOfKey; ++i) {
            const int code = decoder.decode(Press(wheel, key, noise).settled());
            decodedAs.append(wheel.functionName(code));
            if (decoder.find(key.code))
                ++(code == key.code ? outcome.itself : code ? outcome.another : outcome.none);
        }
        outcome.refused += decoder.find(key.code) ? 0 : 1;
        if (details)
            *details << decodeTableRow(key, decoder, decodedAs.join(' ')) << '\n';
    }
    return outcome;
}

Outcome survey(const Wheel &wheel, Noise *noise, QTextStream *details)
{
    if (details)
        *details << QString("%1 keys, smallest spacing / noise %2, noise %3, drift %4, bounce %5\n")
                        .arg(wheel.keys.size())
                        .arg(spacingToNoise(wheel), 0, 'f', 1)
                        .arg(wheel.noise, 0, 'f', 1)
                        .arg(wheel.drift, 0, 'f', 1)
                        .arg(wheel.bounce, 0, 'f', 1)
                 << decodeTableHeader() << '\n';
    const Decoder decoder = learn(wheel, noise);
    return pressAll(wheel, decoder, noise, details);
}

void add(Bucket *bucket, const Outcome &outcome, quint32 seed)
{
    ++bucket->wheels;
    bucket->sum.keys += outcome.keys;
    bucket->sum.refused += outcome.refused;
    bucket->sum.itself += outcome.itself;
    bucket->sum.another += outcome.another;
    bucket->sum.none += outcome.none;
    if (bucket->failingSeed == -1 && !outcome.isPerfect())
        bucket->failingSeed = seed;
}

QString percent(int part, int whole)
{
    return whole == 0 ? "-" : QString::number(100.0 * part / whole, 'f', 3) + '%';
}

QString tableRow(const QStringList &cells)
{
    QString row;
    for (const QString &cell : cells)
        row += QString("%1").arg(cell, 11);
    return row;
}

void printTable(const QVector<Bucket> &buckets, QTextStream *output)
{
    *output << tableRow(
        { "spacing", "wheels", "itself", "another", "none", "keys", "refused at", "seed of a" })
            << '\n'
            << tableRow({ "/ noise", "", "", "", "", "", "learning", "failure" }) << '\n';
    for (const Bucket &bucket : buckets) {
        const Outcome &sum = bucket.sum;
        const int presses = sum.itself + sum.another + sum.none;
        *output << tableRow(
            { QString("below %1").arg(bucket.below), QString::number(bucket.wheels),
              percent(sum.itself, presses), percent(sum.another, presses),
              percent(sum.none, presses), QString::number(sum.keys), percent(sum.refused, sum.keys),
              bucket.failingSeed == -1 ? "-" : QString::number(bucket.failingSeed) })
                << '\n';
    }
}

void surveyWheels(quint32 firstSeed, int count, bool listFailures, QTextStream *output)
{
    QVector<Bucket> buckets;
    for (const double below : { 2, 4, 6, 8, 10, 12, 16, 20, 25, 31 })
        buckets.append({ below, 0, Outcome(), -1 });
    for (int i = 0; i < count; ++i) {
        const quint32 seed = firstSeed + static_cast<quint32>(i);
        Noise noise(seed);
        const Wheel wheel = randomWheel(&noise);
        const Outcome outcome = survey(wheel, &noise, count == 1 ? output : nullptr);
        const double ratio = spacingToNoise(wheel);
        add(std::find_if(buckets.begin(), buckets.end() - 1,
                         [ratio](const Bucket &each) { return ratio < each.below; }),
            outcome, seed);
        if (listFailures && !outcome.isPerfect())
            *output << "failure: --seed " << seed << " --wheels 1\n";
    }
    if (count > 1)
        printTable(buckets, output);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QCommandLineOption seedOption("seed", "Seed of the first wheel (default: 1).", "number",
                                        "1");
    const QCommandLineOption wheelsOption("wheels",
                                          "How many wheels, each with the next seed (default: "
                                          "10000). 1 shows the wheel's keys.",
                                          "number", "10000");
    const QCommandLineOption failuresOption("failures", "Also list the seed of every failure.");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Learns random wheels with the application's own functions and decodes new presses of\n"
        "every key from the configuration: to the key itself, to another, to none. The wheels\n"
        "are grouped by their smallest spacing over the standard deviation of their noise.\n"
        "Drift is up to the noise, bounce up to four times the noise. A key too close to a\n"
        "learned one on all channels is refused at learning, however small the noise is.");
    parser.addHelpOption();
    for (const QCommandLineOption &option : { seedOption, wheelsOption, failuresOption })
        parser.addOption(option);
    parser.process(application);

    bool seedGood = false;
    bool wheelsGood = false;
    const quint32 seed = parser.value(seedOption).toUInt(&seedGood);
    const int wheels = parser.value(wheelsOption).toInt(&wheelsGood);
    if (!seedGood || !wheelsGood || wheels < 1 || !parser.positionalArguments().isEmpty()) {
        QTextStream(stderr) << "swc-survey: --seed and --wheels want whole numbers, see --help\n";
        return 1;
    }
    QTextStream output(stdout);
    surveyWheels(seed, wheels, parser.isSet(failuresOption), &output);
    return 0;
}
