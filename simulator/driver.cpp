#include "driver.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

constexpr char folder[] = "/media/flash/nvm/";
constexpr int largestFile = 1 << 26; // in bytes

Decoded decode(const Measurement &measurement, const WheelKey &key, const Wheel &wheel,
               const QByteArray &configuration)
{
    int code = 0;
    QString function = "none";
    QString reason = "no learned key is near enough";
    int nearest = releasedValue;
    const QJsonObject groups = QJsonDocument::fromJson(configuration).object();
    const QString group = measurement[0] == 2 ? "direction0" : "direction1";
    for (const QJsonValue element : groups.value(group).toArray()) {
        const QJsonObject learned = element.toObject();
        const int road = learned.value("road").toInt();
        if (road < 1 || road > 3)
            continue;
        const int value = learned.value("adc").toArray().at(road - 1).toInt();
        const int interval = learned.value("interval").toInt(-1);
        const int distance = qAbs(measurement[road] - value);
        if (distance > interval || distance >= nearest)
            continue;
        nearest = distance;
        code = learned.value("direction_event").toInt();
        function = wheel.functionName(code);
        const QString text = "within %1 of %2's %3 on channel %4";
        reason = text.arg(interval).arg(function).arg(value).arg(road);
    }
    return { code, QString("%1 is decoded as %2: %3").arg(key.name, function, reason) };
}

QByteArray contentOfFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(largestFile) : QByteArray();
}

void Driver::hold(const WheelKey &key)
{
    held = &key;
    drift = between(-wheel.drift, wheel.drift, &chance);
    count = 0;
    writeNext();
}

void Driver::release()
{
    if (held)
        write({ { held->contact[0], releasedValue, releasedValue, releasedValue } });
    held = nullptr;
}

void Driver::writeNext()
{
    if (held)
        write(measure(wheel, *held, drift, count++, &chance));
}

void Driver::write(const Measurement &measurement)
{
    last = measurement;
    reading = readingText(payloadOf(measurement));
    if (!writeReading(root + folder + "swc_keys", reading, way))
        fault = "can't write swc_keys";
}

QByteArray Driver::contentOf(const QString &name) const
{
    return contentOfFile(root + folder + name);
}

Decoded Driver::decodeHeld() const
{
    const bool decoding = held && flag() == "0";
    return decoding ? decode(last, *held, wheel, contentOf("direction.json")) : Decoded();
}
