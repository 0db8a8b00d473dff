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
        const int learned = key.value("adc").toArray().at(road - 1).toInt();
        const int distance = qAbs(measurement[road] - learned);
        if (distance <= key.value("interval").toInt(-1) && distance < nearest) {
            nearest = distance;
            code = key.value("direction_event").toInt();
        }
    }
    return code;
}

QJsonObject learnedKey(const WheelKey &key, const QJsonObject &configuration)
{
    for (const QJsonValue element : learnedKeys(key.contact[0], configuration)) {
        if (element.toObject().value("direction_event").toInt() == key.code)
            return element.toObject();
    }
    return QJsonObject();
}

QString decodeTableRow(const WheelKey &key, const QJsonObject &learned, const QString &decodedAs)
{
    QString values = "not learned";
    if (!learned.isEmpty()) {
        values = QString::number(key.contact[0]);
        for (const QJsonValue value : learned.value("adc").toArray())
            values += QString(" %1").arg(value.toInt(), 4);
        values += QString(" %1 %2")
                      .arg(learned.value("road").toInt(), 6)
                      .arg(learned.value("interval").toInt(), 8);
    }
    return QString("%1 %2  %3\n").arg(key.name, -10).arg(values, -32).arg(decodedAs);
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
      folder(QDir(root).filePath("media/flash/nvm/")),
      period(1000 / rate),
      chance(seed)
{
    if (!QDir(folder).exists())
        fileFault =
            QString("there is no folder %1; --root names the folder above media").arg(folder);
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
    if (!heldKey)
        return;
    const Measurement measurement = measure(wheel, *heldKey, drift, count++, &chance);
    const bool learning = isLearning();
    const int code = decode(measurement, configuration());
    lastFunction = learning ? QString() : wheel.functionName(code);
    lastNote = learning ? QString() : noteOn(*heldKey, code);
    write(measurement);
}

void Driver::write(const Measurement &measurement)
{
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

QString Driver::noteOn(const WheelKey &key, int code) const
{
    if (code == 0 || !learnedKey(key, configuration()).isEmpty())
        return QString();
    return QString("%1 is not learned: it lies within %2's interval\n")
        .arg(key.name, wheel.functionName(code));
}
