#include "randomwheel.h"

#include <algorithm>

namespace {

// The keys of a line stand on one channel, at least `spacing` apart and as far from 0; a second
// channel is tighter, the third is idle.
void addLine(Wheel *wheel, int line, int count, double spacing, Noise *noise)
{
    const double tightness = noise->uniform(0.1, 0.6);
    const double slack = qMax(0.0, idleValue - spacing * (count + 1)) / count;
    const int mainChannel = static_cast<int>(noise->uniform(0, 3));
    double place = 0;
    for (int i = 0; i < count; ++i) {
        place += spacing + noise->uniform(0, slack);
        WheelKey key;
        key.code = 100 * line + i;
        key.name = QString("key%1").arg(key.code);
        key.contact.line = line;
        key.contact.adc.fill(idleValue);
        key.contact.adc[mainChannel] = qRound(place);
        key.contact.adc[(mainChannel + 1) % 3] = qRound(place * tightness);
        wheel->keys.append(key);
    }
}

// On the channel that keeps the keys furthest apart; the lowest one's distance from 0 counts too.
int spacingOfLine(const Wheel &wheel, int line)
{
    int widest = 0;
    for (int channel = 0; channel < 3; ++channel) {
        QVector<int> values{ 0 };
        for (const WheelKey &key : wheel.keys) {
            if (key.contact.line == line)
                values.append(key.contact.adc[channel]);
        }
        std::sort(values.begin(), values.end());
        int spacing = idleValue;
        for (int i = 1; i < values.size(); ++i)
            spacing = std::min(spacing, values.at(i) - values.at(i - 1));
        widest = std::max(widest, spacing);
    }
    return widest;
}

} // namespace

Wheel randomWheel(Noise *noise)
{
    Wheel wheel;
    const int counts[] = { static_cast<int>(noise->uniform(2, 12)),
                           static_cast<int>(noise->uniform(2, 12)) };
    const double widest = idleValue / (1.0 + std::max(counts[0], counts[1]));
    const double spacing = noise->uniform(20, widest);
    wheel.noise = spacing / noise->uniform(1, 30);
    wheel.drift = noise->uniform(0, wheel.noise);
    wheel.bounce = noise->uniform(0, 4 * wheel.noise);
    addLine(&wheel, 2, counts[0], spacing, noise);
    addLine(&wheel, 3, counts[1], spacing, noise);
    return wheel;
}

double spacingToNoise(const Wheel &wheel)
{
    return std::min(spacingOfLine(wheel, 2), spacingOfLine(wheel, 3)) / wheel.noise;
}
