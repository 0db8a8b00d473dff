#include "wheel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QRegExp>

#include <algorithm>
#include <cmath>

namespace {

constexpr int settledNumber = 16; // each reading bounces half as much

// Gives what the key needs, else nothing.
QString readKey(const QJsonObject &object, const Wheel &wheel, WheelKey *key)
{
    const QJsonArray adc = object.value("adc").toArray();
    const auto value = [&adc](int channel) { return adc.at(channel - 1).toInt(-1); };
    key->name = object.value("name").toString();
    key->label = object.value("label").toString(key->name);
    key->code = object.value("code").toInt();
    key->contact = { { object.value("line").toInt(), value(1), value(2), value(3) } };
    const auto range = std::minmax({ value(1), value(2), value(3) });
    if (!QRegExp("(?!(all|none)$)\\S+").exactMatch(key->name) || wheel.find(key->name))
        return R"("name", one word that no other key has, neither all nor none)";
    if (key->code < 1)
        return R"("code", a whole number above 0)";
    if (key->contact[0] != 2 && key->contact[0] != 3)
        return R"("line", 2 or 3)";
    if (adc.size() != 3 || range.first < 0 || range.second > idleValue)
        return R"("adc", three whole numbers from 0 to 4094)";
    return QString();
}

} // namespace

QString parseWheel(const QByteArray &text, Wheel *wheel)
{
    QJsonParseError error{};
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        return QString("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    wheel->noise = object.value("noise").toDouble(-1);
    wheel->drift = object.value("drift").toDouble(-1);
    wheel->bounce = object.value("bounce").toDouble(-1);
    const auto range = std::minmax({ wheel->noise, wheel->drift, wheel->bounce });
    if (range.first < 0 || range.second > releasedValue)
        return R"(a wheel needs "noise", "drift" and "bounce", numbers from 0 to 4095)";
    for (const QJsonValue element : object.value("keys").toArray()) {
        WheelKey key;
        const QString need = readKey(element.toObject(), *wheel, &key);
        if (!need.isEmpty())
            return QString(R"(key %1, "%2", needs %3)")
                .arg(wheel->keys.size() + 1)
                .arg(key.name, need);
        wheel->keys.append(key);
    }
    return wheel->keys.isEmpty() ? R"(a wheel needs "keys")" : QString();
}

const WheelKey *Wheel::find(const QString &name) const
{
    const int index = keyNames().indexOf(name);
    return index < 0 ? nullptr : &keys.at(index);
}

QStringList Wheel::keyNames() const
{
    QStringList names;
    for (const WheelKey &key : keys)
        names.append(key.name);
    return names;
}

QString Wheel::functionName(int code) const
{
    const auto *key = std::find_if(keys.begin(), keys.end(),
                                   [code](const WheelKey &key) { return key.code == code; });
    return key != keys.end() ? key->name : code == 0 ? "none" : QString::number(code);
}

double between(double from, double to, Chance *chance)
{
    return std::uniform_real_distribution<double>(from, to)(*chance);
}

Measurement measure(const Wheel &wheel, const WheelKey &key, double drift, int number,
                    Chance *chance)
{
    std::normal_distribution<double> deviation;
    const double offset = drift + between(0, std::ldexp(wheel.bounce, -number), chance);
    Measurement measurement = key.contact;
    for (int channel = 1; channel <= 3; ++channel) {
        const double value = key.contact[channel] + offset + wheel.noise * deviation(*chance);
        if (key.contact[channel] != idleValue)
            measurement[channel] = qBound(0, qRound(value), idleValue);
    }
    return measurement;
}

Measurement settledPress(const Wheel &wheel, const WheelKey &key, Chance *chance)
{
    const double drift = between(-wheel.drift, wheel.drift, chance);
    return measure(wheel, key, drift, settledNumber, chance);
}
