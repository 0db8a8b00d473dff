#include "configuration.h"
#include "driver.h"
#include "records.h"

#include <QByteArray>
#include <QMap>
#include <QString>

#include <cstdio>

namespace {

constexpr int readingsOfLearning = 8;
constexpr int rowHeight = 2; // of spacing / noise

// The presses decoded as the key itself, as another and as none, and the seed of a wheel that
// failed.
struct Row
{
    double itself, another, none;
    quint32 failure;
};

// The keys of a line stand on one channel, the lowest at the spacing, which is wide enough for the
// program not to refuse a key. A second channel is tighter, the third is idle.
Wheel randomWheel(double spacingToNoise, Chance *chance)
{
    Wheel wheel;
    const double spacing = between(80, 160, chance);
    wheel.noise = spacing / spacingToNoise;
    wheel.drift = between(0, wheel.noise, chance);
    wheel.bounce = between(0, 4 * wheel.noise, chance);
    for (const int line : { 2, 3 }) {
        const int channel = static_cast<int>(between(0, 3, chance));
        const double end = between(400, 2000, chance);
        for (int place = qRound(spacing); place < end;) {
            WheelKey key;
            key.code = wheel.keys.size() + 1;
            key.name = QString("key%1").arg(key.code);
            key.contact = { { line, idleValue, idleValue, idleValue } };
            key.contact[1 + channel] = place;
            key.contact[1 + (channel + 1) % 3] = place / 3;
            wheel.keys.append(key);
            place += qRound(between(spacing, 2 * spacing, chance));
        }
    }
    return wheel;
}

void surveyWheel(quint32 seed, bool isAlone, QMap<int, Row> *rows)
{
    Chance chance(seed);
    const double spacingToNoise = between(1, 30, &chance);
    const Wheel wheel = randomWheel(spacingToNoise, &chance);
    const auto drift = [&] { return between(-wheel.drift, wheel.drift, &chance); };
    QMap<int, QString> learned;
    for (const WheelKey &key : wheel.keys) {
        const double press = drift();
        QMap<int, QString> samples;
        for (int i = 0; i < readingsOfLearning; ++i) {
            const Measurement reading = measure(wheel, key, press, i, &chance);
            samples.insert(i, sampleRecord(key.code, payloadOf(reading)));
        }
        learned.insert(key.code, learnedRecordFrom(samples));
    }
    const QByteArray configuration =
        configurationText(learned, selectChannel(learned, 2), selectChannel(learned, 3));
    Row &row = (*rows)[static_cast<int>(spacingToNoise) / rowHeight * rowHeight];
    for (const WheelKey &key : wheel.keys) {
        const Measurement settled = measure(wheel, key, drift(), readingsOfLearning, &chance);
        const Decoded press = decode(settled, key, wheel, configuration);
        ++(press.code == key.code ? row.itself : press.code == 0 ? row.none : row.another);
        if (press.code != key.code)
            row.failure = seed;
        if (isAlone)
            std::puts(qPrintable(press.text));
    }
}

} // namespace

int main(int argc, char **argv)
{
    const int wheels = argc > 1 ? QByteArray(argv[1]).toInt() : 10000;
    const quint32 seed = argc > 2 ? QByteArray(argv[2]).toUInt() : 1;
    if (wheels < 1 || seed < 1) {
        std::puts("usage: swc-survey [WHEELS [SEED]], see docs/simulator.md");
        return 1;
    }
    QMap<int, Row> rows;
    for (int i = 0; i < wheels; ++i)
        surveyWheel(seed + i, wheels == 1, &rows);
    std::puts("spacing/noise    itself   another      none    failure");
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const double percent = (row->itself + row->another + row->none) / 100.0;
        std::printf("%6d to %2d %9.3f%% %9.3f%% %9.3f%% %10u\n", row.key(), row.key() + rowHeight,
                    row->itself / percent, row->another / percent, row->none / percent,
                    row->failure);
    }
}
