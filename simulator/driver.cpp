#include "driver.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>
#include <utility>

namespace {

QJsonArray learnedKeys(int line, const QJsonObject &configuration)
{
    return configuration.value(line == 2 ? "direction0" : "direction1").toArray();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

QString decodeTableRow(const WheelKey &key, const QJsonObject &configuration,
                       const QString &decodedAs)
{
    QString learned = "not learned";
    for (const QJsonValue element : learnedKeys(key.contact[0], configuration)) {
        const QJsonObject object = element.toObject();
        const QJsonArray adc = object.value("adc").toArray();
        if (object.value("direction_event").toInt() == key.code)
            learned = QString("%1 %2 %3 %4 %5 %6")
                          .arg(key.contact[0])
                          .arg(adc.at(0).toInt(), 4)
                          .arg(adc.at(1).toInt(), 4)
                          .arg(adc.at(2).toInt(), 4)
                          .arg(object.value("road").toInt(), 6)
                          .arg(object.value("interval").toInt(), 8);
    }
    return QString("%1 %2  %3\n").arg(key.name, -10).arg(learned, -32).arg(decodedAs);
}

QByteArray readingText(const Measurement &measurement)
{
    QByteArray payload = QByteArray::number(measurement[0]);
    for (int channel = 1; channel <= 3; ++channel)
        payload += ',' + QByteArray::number(measurement[channel]);
    return QByteArray::number(payload.size()) + ':' + payload;
}

Driver::Driver(Wheel wheel, const QString &root, int rate, quint32 seed)
    : wheel(std::move(wheel)),
      period(1000 / rate),
      folder(QDir(root).filePath("media/flash/nvm")),
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
    const int code = decode(measurement, configuration());
    lastFunction = isLearning() ? QString() : wheel.functionName(code);
    write(measurement);
}

void Driver::write(const Measurement &measurement)
{
    lastReading = readingText(measurement);
    const QString path = folder + "/swc_keys";
    const QString newPath = writing == "rename" ? path + ".new" : path;
    // Opened for reading too, a file keeps what a longer reading has left behind this one. A file
    // renamed to its own name stays as it is.
    const auto mode = writing == "overwrite" ? QIODevice::ReadWrite : QIODevice::WriteOnly;
    QFile file(newPath);
    if (!file.open(mode | QIODevice::Unbuffered) || file.write(lastReading) != lastReading.size()
        || std::rename(QFile::encodeName(newPath), QFile::encodeName(path)) != 0)
        fileFault = "can't write " + path;
}

QByteArray Driver::flag() const
{
    return contentOf(folder + "/swc_flags");
}

QJsonObject Driver::configuration() const
{
    return QJsonDocument::fromJson(contentOf(folder + "/direction.json")).object();
}
