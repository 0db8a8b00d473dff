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

QVector<int> valuesOn(int channel, const QMap<int, QString> &learnedKeys, int keyLine)
{
    QVector<int> values;
    for (const QString &record : learnedKeys) {
        const QVector<int> fields = fieldsOf(record);
        if (fields.first() == keyLine)
            values.append(fields.value(channel));
    }
    return values;
}

// A difference of two ints may not fit into an int, so it is computed with 64 bits. The returned
// spacing always fits, because it is at most the lowest value.
int smallestSpacing(QVector<int> values)
{
    std::sort(values.begin(), values.end());
    qint64 spacing = values.first();
    for (int i = 1; i < values.size(); ++i)
        spacing = qMin(spacing, qint64(values.at(i)) - values.at(i - 1));
    return static_cast<int>(spacing);
}

QJsonObject keyObject(int code, const QVector<int> &record, const QMap<int, int> &selectedChannel)
{
    QJsonObject key;
    key.insert(codeMember, code);
    QJsonArray values;
    for (int channel = 1; channel <= channelCount; ++channel)
        values.append(record.value(channel));
    key.insert(valuesMember, values);
    key.insert("road", selectedChannel.firstKey());
    const int interval = intervalFor(selectedChannel.first());
    if (interval != -1)
        key.insert("interval", interval);
    return key;
}

} // namespace

QJsonObject parseConfiguration(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

QList<LoadedKey> keysOfGroup(const QJsonObject &configuration, const QString &group)
{
    const int keyLine = group == line2Group ? keyLine2 : keyLine3;
    QList<LoadedKey> keys;
    for (const QJsonValue element : configuration.value(group).toArray()) {
        const QJsonObject key = element.toObject();
        const int code = key.value(codeMember).toInt();
        QString record = QString::number(keyLine);
        for (const QJsonValue value : key.value(valuesMember).toArray())
            record += ',' + QString::number(value.toInt());
        if (code != 0)
            keys.append({ code, record });
    }
    return keys;
}

QMap<int, int> selectChannel(const QMap<int, QString> &learnedKeys, int keyLine)
{
    QMap<int, int> selected;
    for (int channel = 1; channel <= channelCount; ++channel) {
        const QVector<int> values = valuesOn(channel, learnedKeys, keyLine);
        if (values.isEmpty())
            break;
        const int spacing = smallestSpacing(values);
        if (selected.isEmpty() || spacing >= selected.first())
            selected = { { channel, spacing } };
    }
    return selected;
}

int intervalFor(int spacing)
{
    return spacing >> 1;
}

QByteArray configurationText(const QMap<int, QString> &learnedKeys,
                             const QMap<int, int> &line2Channel, const QMap<int, int> &line3Channel)
{
    QJsonArray line2Keys;
    QJsonArray line3Keys;
    for (auto key = learnedKeys.begin(); key != learnedKeys.end(); ++key) {
        const QVector<int> record = fieldsOf(key.value());
        if (record.first() == keyLine2)
            line2Keys.append(keyObject(key.key(), record, line2Channel));
        else if (record.first() == keyLine3)
            line3Keys.append(keyObject(key.key(), record, line3Channel));
    }
    QJsonObject configuration;
    configuration.insert(line2Group, line2Keys);
    configuration.insert(line3Group, line3Keys);
    return QJsonDocument(configuration).toJson();
}
