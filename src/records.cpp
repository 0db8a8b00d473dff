#include "records.h"

#include "reading.h"

#include <QStringList>

namespace {

constexpr int maxDistance = 60; // a larger difference of one value means two different keys
constexpr int learnedRecordFields = 1 + channelCount;

int roundedMean(int sum, int count)
{
    const float rounded = static_cast<float>(sum) / static_cast<float>(count) + 0.5f;
    return static_cast<int>(rounded);
}

} // namespace

QVector<int> fieldsOf(const QString &record)
{
    QVector<int> fields;
    for (const QString &field : record.split(','))
        fields.append(field.toInt());
    return fields;
}

QString sampleRecord(int code, const QString &payload)
{
    return QString::number(code) + ',' + payload;
}

bool collides(const QString &sample, const QString &learned)
{
    const QVector<int> measured = fieldsOf(sample).mid(1); // without the key code
    const QVector<int> known = fieldsOf(learned);
    if (measured.size() < learnedRecordFields || known.size() < learnedRecordFields)
        return false;
    if (measured.first() != known.first())
        return false;
    for (int i = 1; i < learnedRecordFields; ++i) {
        const qint64 difference = qint64(measured.at(i)) - known.at(i);
        if (qAbs(difference) > maxDistance)
            return false;
    }
    return true;
}

int keyCodeOf(const QString &sample)
{
    return fieldsOf(sample).first();
}

QString learnedRecordFrom(const QMap<int, QString> &samples)
{
    QString record = QString::number(fieldsOf(samples.first()).value(1));
    for (int field = 2; field < 2 + channelCount; ++field) {
        int sum = 0;
        for (const QString &sample : samples)
            sum += fieldsOf(sample).value(field);
        record += ',' + QString::number(roundedMean(sum, samples.size()));
    }
    return record;
}
