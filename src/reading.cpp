#include "reading.h"

#include "records.h"

#include <QStringList>
#include <QVector>

#include <algorithm>

ReadingFault parseReading(const QString &text, Reading *reading)
{
    if (!text.contains(':'))
        return ReadingFault::NoColon;

    const QStringList parts = text.split(':');
    const int count = parts.at(0).toInt();
    const QString payload = parts.at(1).left(count); // the whole string if the count is negative
    const QVector<int> fields = fieldsOf(payload);
    if (fields.size() < 1 + channelCount)
        return ReadingFault::TooFewFields;

    reading->payload = payload;
    reading->keyLine = fields.at(0);
    reading->adc = { fields.at(1), fields.at(2), fields.at(3) };
    return ReadingFault::None;
}

ReadingClass classify(const Reading &reading)
{
    const auto range = std::minmax_element(reading.adc.begin(), reading.adc.end());
    if (*range.first >= 0 && *range.second < releaseValue)
        return ReadingClass::Sample;
    if (*range.first == releaseValue && *range.second == releaseValue)
        return ReadingClass::Release;
    return ReadingClass::Invalid;
}
