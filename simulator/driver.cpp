#include "driver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

#include <utility>

namespace {

constexpr int largestFile = 1 << 20; // in bytes

QJsonArray learnedKeys(int line, const QJsonObject &configuration)
{
    return configuration.value(line == 2 ? "direction0" : "direction1").toArray();
}

} // namespace

int decode(const Measurement &measurement, const QJsonObject &configuration)
{
    int code = 0;
    int nearest = releasedValue;
    for (const QJsonValue element : learnedKeys(measurement[0], configuration)) {
        const QJsonObject key = element.toObject();
        const int road = key.value("road").toInt();
        if (road < 1 || road > 3)
            continue;
        const int distance =
            qAbs(measurement[road] - key.value("adc").toArray().at(road - 1).toInt());
        if (distance <= key.value("interval").toInt(-1) && distance < nearest) {
            nearest = distance;
            code = key.value("direction_event").toInt();
        }
    }
    return code;
}

QString decodedText(const WheelKey &key, const QString &function, const QJsonObject &configuration)
{
    const QString text = QString("%1 is decoded as %2: %3").arg(key.name, function);
    for (const QJsonValue element : learnedKeys(key.contact[0], configuration)) {
        const QJsonObject learned = element.toObject();
        const int road = learned.value("road").toInt();
        if (learned.value("direction_event").toInt() == key.code)
            return text.arg(QString("learned as %1 on channel %2, interval %3")
                                .arg(learned.value("adc").toArray().at(road - 1).toInt())
                                .arg(road)
                                .arg(learned.value("interval").toInt()));
    }
    return text.arg(function == "none" ? "not learned"
                                       : "not learned, but within " + function + "'s interval");
}

QString readRegularFile(const QString &path, QByteArray *content)
{
    QFile file(path);
    if (file.exists() && !QFileInfo(file).isFile())
        return "no regular file";
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    *content = file.read(largestFile);
    return QString();
}

Driver::Driver(Wheel wheel, const QString &root, int rate, quint32 seed)
    : wheel(std::move(wheel)),
      root(root),
      period(1000 / rate),
      folder(QDir(root).filePath("media/flash/nvm/")),
      chance(seed)
{
}

void Driver::hold(const WheelKey &key)
{
    heldKey = &key;
    drift = between(-wheel.drift, wheel.drift, &chance);
    count = 0;
    writeNext();
}

void Driver::release()
{
    if (!heldKey)
        return;
    write({ { heldKey->contact[0], releasedValue, releasedValue, releasedValue } });
    heldKey = nullptr;
}

void Driver::writeNext()
{
    if (heldKey)
        write(measure(wheel, *heldKey, drift, count++, &chance));
}

QString Driver::function() const
{
    return heldKey && !isLearning() ? wheel.functionName(decode(last, configuration())) : QString();
}

void Driver::write(const Measurement &measurement)
{
    last = measurement;
    lastReading = readingText(payloadOf(measurement));
    if (!writeReading(folder + "swc_keys", lastReading, way))
        fileFault = QString("can't write %1swc_keys").arg(folder);
}

QByteArray Driver::contentOf(const QString &name) const
{
    QByteArray content;
    readRegularFile(folder + name, &content);
    return content;
}

QJsonObject Driver::configuration() const
{
    return QJsonDocument::fromJson(contentOf("direction.json")).object();
}
