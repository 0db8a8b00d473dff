#include "configuration.h"

#include "reading.h"
#include "records.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QVector>

#include <algorithm>

namespace {

constexpr char codeMember[] = "direction_event";
constexpr char valuesMember[] = "adc";

LoadedKey loadedKey(const QJsonObject &key, int keyLine)
{
    LoadedKey result{ key.value(codeMember).toInt(), QString::number(keyLine) };
    for (const QJsonValue value : key.value(valuesMember).toArray())
        result.record += ',' + QString::number(value.toInt());
    return result;
}

QVector<int> valuesOn(int channel, const QMap<int, QString> &learnedKeys, int keyLine)
{
    QVector<int> values;
    for (const QString &record : learnedKeys) {
        const RecordFields fields(record);
        if (fields.at(0) == keyLine)
            values.append(fields.at(channel));
    }
    return values;
}

// A negative lowest value stays below every difference, so the result always fits an int.
int smallestSpacing(QVector<int> values)
{
    std::sort(values.begin(), values.end());
    qint64 spacing = values.first();
    for (int i = 1; i < values.size(); ++i)
        spacing = qMin(spacing, qint64(values.at(i)) - values.at(i - 1));
    return static_cast<int>(spacing);
}

QJsonObject keyObject(int code, const RecordFields &record, const ChannelChoice &choice)
{
    QJsonObject key;
    key.insert(codeMember, code);
    QJsonArray values;
    for (int channel = 1; channel <= channelCount; ++channel)
        values.append(record.at(channel));
    key.insert(valuesMember, values);
    if (choice.channel != -1)
        key.insert("road", choice.channel);
    if (choice.interval() != -1)
        key.insert("interval", choice.interval());
    return key;
}

} // namespace

QJsonObject parseConfiguration(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

QList<LoadedKey> keysOfGroup(const QJsonObject &configuration, const QString &group)
{
    const int keyLine = group == line2Group ? keyLine2 : keyLine3;
    QList<LoadedKey> keys;
    for (const QJsonValue element : configuration.value(group).toArray()) {
        const LoadedKey key = loadedKey(element.toObject(), keyLine);
        if (key.code != 0)
            keys.append(key);
    }
    return keys;
}

ChannelChoice selectChannel(const QMap<int, QString> &learnedKeys, int keyLine)
{
    ChannelChoice widest;
    for (int channel = 1; channel <= channelCount; ++channel) {
        const QVector<int> values = valuesOn(channel, learnedKeys, keyLine);
        if (values.isEmpty())
            break;
        const int spacing = smallestSpacing(values);
        if (widest.channel == -1 || spacing >= widest.spacing)
            widest = { channel, spacing };
    }
    return widest;
}

QByteArray configurationText(const QMap<int, QString> &learnedKeys, const ChannelChoice &line2,
                             const ChannelChoice &line3)
{
    QJsonArray line2Keys;
    QJsonArray line3Keys;
    for (auto key = learnedKeys.begin(); key != learnedKeys.end(); ++key) {
        const RecordFields record(key.value());
        if (record.at(0) == keyLine2)
            line2Keys.append(keyObject(key.key(), record, line2));
        else if (record.at(0) == keyLine3)
            line3Keys.append(keyObject(key.key(), record, line3));
    }
    QJsonObject configuration;
    configuration.insert(line2Group, line2Keys);
    configuration.insert(line3Group, line3Keys);
    return QJsonDocument(configuration).toJson();
}
