#include "configuration.h"

#include "reading.h"
#include "records.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

// A negative lowest value stays below every difference, so the result always fits an int.
int smallestSpacing(QVector<int> values)
{
    std::sort(values.begin(), values.end());
    qint64 spacing = values.first();
    for (int i = 1; i < values.size(); ++i)
        spacing = qMin(spacing, qint64(values.at(i)) - values.at(i - 1));
    return static_cast<int>(spacing);
}

QJsonObject keyObject(int code, const RecordFields &record, const Decoding &decoding)
{
    QJsonObject key;
    key.insert(codeMember, code);
    QJsonArray values;
    for (int channel = 1; channel <= channelCount; ++channel)
        values.append(record.at(channel));
    key.insert(valuesMember, values);
    if (decoding.road != -1)
        key.insert("road", decoding.road);
    if (decoding.interval != -1)
        key.insert("interval", decoding.interval);
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

QMap<int, int> selectChannel(const QMap<int, QString> &learnedKeys, int keyLine)
{
    QMap<int, QVector<int>> valuesByChannel;
    for (const QString &record : learnedKeys) {
        const RecordFields fields(record);
        if (fields.at(0) != keyLine)
            continue;
        for (int channel = 1; channel <= channelCount; ++channel)
            valuesByChannel[channel].append(fields.at(channel));
    }

    QMap<int, int> widest;
    for (auto values = valuesByChannel.begin(); values != valuesByChannel.end(); ++values) {
        const int spacing = smallestSpacing(values.value());
        if (widest.isEmpty() || spacing >= widest.first())
            widest = { { values.key(), spacing } };
    }
    return widest;
}

Decoding decodingOf(const QMap<int, int> &selection)
{
    if (selection.isEmpty())
        return {};
    return { selection.firstKey(), selection.first() >> 1 };
}

QByteArray configurationText(const QMap<int, QString> &learnedKeys, const Decoding &line2,
                             const Decoding &line3)
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
