#include "wheel.h"

#include <algorithm>

const WheelKey *Wheel::find(const QString &name) const
{
    const auto *const key = std::find_if(
        keys.begin(), keys.end(), [&name](const WheelKey &each) { return each.name == name; });
    return key == keys.end() ? nullptr : key;
}

QString Wheel::functionName(int code) const
{
    if (code == 0)
        return "none";
    const auto *const key = std::find_if(
        keys.begin(), keys.end(), [code](const WheelKey &each) { return each.code == code; });
    return key == keys.end() ? QString::number(code) : key->name;
}

double Noise::uniform(double from, double to)
{
    constexpr double engineRange = 4294967296.0;
    return from + (to - from) * (static_cast<double>(engine()) / engineRange);
}

// The sum of twelve uniform numbers has the variance 1.
double Noise::normal()
{
    double sum = 0;
    for (int i = 0; i < 12; ++i)
        sum += uniform(0, 1);
    return sum - 6;
}

Press::Press(const Wheel &wheel, const WheelKey &key, Noise *noise)
    : wheel(wheel),
      contact(key.contact),
      noise(noise),
      drift(noise->uniform(-wheel.drift, wheel.drift)),
      bounce(wheel.bounce)
{
}

Measurement Press::next()
{
    const double offset = drift + noise->uniform(0, bounce);
    bounce /= 2;
    Measurement measurement = contact;
    for (int &value : measurement.adc)
        value = valueOf(value, offset);
    return measurement;
}

Measurement Press::settled()
{
    while (bounce >= 1)
        next();
    return next();
}

Measurement Press::released() const
{
    return { contact.line, { { releasedValue, releasedValue, releasedValue } } };
}

int Press::valueOf(int contact, double offset)
{
    if (contact == idleValue)
        return idleValue;
    return qBound(0, qRound(contact + offset + wheel.noise * noise->normal()), idleValue);
}
