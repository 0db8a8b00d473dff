#include "reading.h"

#include "records.h"

#include <QStringList>

#include <algorithm>

ReadingFault parseReading(const QString &text, Reading *reading)
{
    if (!text.contains(':'))
        return ReadingFault::NoColon;

    const QStringList parts = text.split(':');
    const QString payload = parts.at(1).left(parts.at(0).toInt()); // a negative count takes all
    const RecordFields fields(payload);
    if (fields.size() < 1 + channelCount)
        return ReadingFault::TooFewFields;

    reading->payload = payload;
    reading->keyLine = fields.at(0);
    reading->adc = { fields.at(1), fields.at(2), fields.at(3) };
    return ReadingFault::None;
}

ReadingClass classify(const Reading &reading)
{
    const auto all = [&reading](bool (*test)(int)) {
        return std::all_of(reading.adc.begin(), reading.adc.end(), test);
    };
    if (all([](int value) { return value >= 0 && value < releaseValue; }))
        return ReadingClass::Sample;
    if (all([](int value) { return value == releaseValue; }))
        return ReadingClass::Release;
    return ReadingClass::Invalid;
}

bool isKnownKeyLine(int keyLine)
{
    return keyLine == keyLine2 || keyLine == keyLine3;
}
