#include "driver.h"

#include <QFile>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include <utility>

int decode(int line, const QVector<int> &adc, const QByteArray &configuration)
{
    int code = 0;
    int smallestDistance = releasedValue;
    const QJsonObject lines = QJsonDocument::fromJson(configuration).object();
    for (const QJsonValue element :
         lines.value(line == 2 ? "direction0" : "direction1").toArray()) {
        const QJsonObject key = element.toObject();
        const int channel = key.value("road").toInt();
        if (channel < 1 || channel > 3)
            continue;
        const int learned = key.value("adc").toArray().at(channel - 1).toInt();
        const int distance = qAbs(adc.at(channel - 1) - learned);
        if (distance <= key.value("interval").toInt(-1) && distance < smallestDistance) {
            smallestDistance = distance;
            code = key.value("direction_event").toInt();
        }
    }
    return code;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(1 << 20) : QByteArray();
}

Driver::Driver(Wheel wheel, QString root) : wheel(std::move(wheel)), root(std::move(root)) { }

void Driver::press(const WheelKey &key)
{
    this->key = &key;
    failed = false;
    measure();
}

void Driver::measure()
{
    if (!key)
        return;
    std::normal_distribution<double> deviation;
    QVector<int> values = key->adc;
    for (int &value : values) {
        if (value != idleValue)
            value = qBound(0, qRound(value + wheel.noise * deviation(generator)), idleValue);
    }
    write(values);
}

void Driver::release()
{
    if (key)
        write(QVector<int>(3, releasedValue));
    key = nullptr;
}

QString Driver::flag() const
{
    return readFile(path("swc_flags"));
}

int Driver::decodedCode() const
{
    return key && flag() == "0" ? decode(key->line, adc, readFile(path("direction.json"))) : -1;
}

// Truncates the file and writes the text at once.
void Driver::write(const QVector<int> &values)
{
    adc = values;
    const QString payload =
        QString("%1,%2,%3,%4").arg(key->line).arg(adc[0]).arg(adc[1]).arg(adc[2]);
    text = QString("%1:%2").arg(payload.size()).arg(payload).toLatin1();
    QFile file(path("swc_keys"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(text) != text.size())
        failed = true;
}

QString Driver::path(const QString &name) const
{
    return root + "/media/flash/nvm/" + name;
}
