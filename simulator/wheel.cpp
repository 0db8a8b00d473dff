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

constexpr char keyNeeds[] = R"(key %1, "%2", needs a "name", one word, a "code" above 0, )"
                            R"("line", 2 or 3, and "adc", three whole numbers from 0 to 4094)";

WheelKey keyFrom(const QJsonObject &object)
{
    const QJsonArray adc = object.value("adc").toArray();
    WheelKey key;
    key.name = object.value("name").toString();
    key.label = object.value("label").toString(key.name);
    key.code = object.value("code").toInt();
    key.contact = { { object.value("line").toInt(), adc.at(0).toInt(-1), adc.at(1).toInt(-1),
                      adc.at(2).toInt(-1) } };
    return key;
}

bool isGood(const WheelKey &key)
{
    const auto values = std::minmax({ key.contact[1], key.contact[2], key.contact[3] });
    return QRegExp("\\S+").exactMatch(key.name) && key.code > 0
        && (key.contact[0] == 2 || key.contact[0] == 3) && values.first >= 0
        && values.second <= idleValue;
}

} // namespace

QString parseWheel(const QByteArray &text, Wheel *wheel)
{
    QJsonParseError error{};
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    if (text.isEmpty())
        return "there is nothing to read";
    if (error.error != QJsonParseError::NoError)
        return QString("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    wheel->noise = object.value("noise").toDouble(-1);
    wheel->drift = object.value("drift").toDouble(-1);
    wheel->bounce = object.value("bounce").toDouble(-1);
    const auto range = std::minmax({ wheel->noise, wheel->drift, wheel->bounce });
    if (range.first < 0 || range.second > releasedValue)
        return R"(a wheel needs "noise", "drift" and "bounce", numbers from 0 to 4095)";
    for (const QJsonValue element : object.value("keys").toArray()) {
        const WheelKey key = keyFrom(element.toObject());
        if (!isGood(key))
            return QString(keyNeeds).arg(wheel->keys.size() + 1).arg(key.name);
        wheel->keys.append(key);
    }
    return wheel->keys.isEmpty() ? R"(a wheel needs "keys")" : QString();
}

QString Wheel::functionName(int code) const
{
    for (const WheelKey &key : keys) {
        if (key.code == code)
            return key.name;
    }
    return QString::number(code);
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
