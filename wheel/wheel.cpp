#include "wheel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>

#include <algorithm>

namespace {

WheelKey keyFrom(const QJsonObject &object)
{
    WheelKey key;
    key.name = object.value("name").toString();
    key.label = object.value("label").toString(key.name.toUpper());
    key.code = object.value("code").toInt();
    key.line = object.value("line").toInt();
    for (const QJsonValue value : object.value("adc").toArray())
        key.adc.append(value.toInt(-1));
    return key;
}

bool isValid(const WheelKey &key)
{
    const bool isWord = !key.name.isEmpty() && !key.name.contains(' ');
    return isWord && key.code > 0 && (key.line == 2 || key.line == 3) && key.adc.size() == 3
        && std::all_of(key.adc.begin(), key.adc.end(),
                       [](int value) { return value >= 0 && value <= idleValue; });
}

} // namespace

QString Wheel::functionName(int code) const
{
    for (const WheelKey &key : keys) {
        if (key.code == code)
            return key.name;
    }
    return code == 0 ? "none" : QString::number(code);
}

QString parseWheel(const QByteArray &text, Wheel *wheel)
{
    if (text.isEmpty())
        return "the file is empty or can't be read";
    QJsonParseError error{};
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        return QString("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    wheel->noise = object.value("noise").toDouble(-1);
    if (wheel->noise < 0 || wheel->noise > releasedValue)
        return R"("noise" must be a number from 0 to 4095)";
    for (const QJsonValue element : object.value("keys").toArray()) {
        const WheelKey key = keyFrom(element.toObject());
        if (!isValid(key)) {
            return QString(
                       R"(key %1, "%2", needs a "name" of one word, a "code" above 0, "line" 2 )"
                       R"(or 3, and "adc", three whole numbers from 0 to 4094)")
                .arg(wheel->keys.size() + 1)
                .arg(key.name);
        }
        wheel->keys.append(key);
    }
    return wheel->keys.isEmpty() ? R"("keys" must be an array of at least one key)" : QString();
}
