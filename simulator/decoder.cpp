#include "decoder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

Decoder::Decoder(const QByteArray &configuration)
{
    const QJsonObject object = QJsonDocument::fromJson(configuration).object();
    addGroup(object, "direction0", 2);
    addGroup(object, "direction1", 3);
}

void Decoder::addGroup(const QJsonObject &configuration, const char *group, int line)
{
    for (const QJsonValue element : configuration.value(group).toArray()) {
        const QJsonObject object = element.toObject();
        const QJsonArray values = object.value("adc").toArray();
        LearnedKey key;
        key.contact.line = line;
        for (int i = 0; i < 3; ++i)
            key.contact.adc[i] = values.at(i).toInt();
        key.code = object.value("direction_event").toInt();
        key.road = object.value("road").toInt();
        key.interval = object.value("interval").toInt(-1);
        if (key.code != 0 && key.road >= 1 && key.road <= 3 && values.size() == 3)
            keys.append(key);
    }
}

const LearnedKey *Decoder::find(int code) const
{
    const auto *const key = std::find_if(
        keys.begin(), keys.end(), [code](const LearnedKey &each) { return each.code == code; });
    return key == keys.end() ? nullptr : key;
}

int Decoder::decode(const Measurement &measurement) const
{
    int code = 0;
    int nearest = releasedValue + 1;
    for (const LearnedKey &key : keys) {
        const int channel = key.road - 1;
        const int distance = qAbs(measurement.adc[channel] - key.contact.adc[channel]);
        if (key.contact.line == measurement.line && distance <= key.interval
            && distance < nearest) {
            nearest = distance;
            code = key.code;
        }
    }
    return code;
}

namespace {

QString tableRow(const QString &key, const QString &learned, const QString &road,
                 const QString &interval, const QString &decodedAs)
{
    return QString("%1 %2 %3 %4  %5")
        .arg(key, -10)
        .arg(learned, -16)
        .arg(road, 4)
        .arg(interval, 8)
        .arg(decodedAs);
}

} // namespace

QString decodeTableHeader()
{
    return tableRow("key", "learned values", "road", "interval", "decoded as");
}

QString decodeTableRow(const WheelKey &key, const Decoder &decoder, const QString &decodedAs)
{
    const LearnedKey *learned = decoder.find(key.code);
    if (!learned)
        return tableRow(key.name, "not learned", "-", "-", decodedAs);
    const QString values = QString("%1 %2 %3 %4")
                               .arg(learned->contact.line)
                               .arg(learned->contact.adc[0])
                               .arg(learned->contact.adc[1])
                               .arg(learned->contact.adc[2]);
    return tableRow(key.name, values, QString::number(learned->road),
                    QString::number(learned->interval), decodedAs);
}
