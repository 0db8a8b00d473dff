#include "records.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int tolerance = 60; // converter steps between two samples of one key
constexpr int firstValueOfSample = 2; // after the code and the key line
constexpr int sampleRecordFields = firstValueOfSample + channelCount;

int roundedMean(int sum, int count)
{
    const float rounded = static_cast<float>(sum) / static_cast<float>(count) + 0.5f;
    return static_cast<int>(rounded);
}

} // namespace

RecordFields::RecordFields(QString record) : text(std::move(record))
{
    for (int comma = text.indexOf(','); comma >= 0; comma = text.indexOf(',', comma + 1))
        ends.append(comma);
    ends.append(text.size());
}

int RecordFields::at(int index) const
{
    if (index >= ends.size())
        return 0;
    const int begin = index == 0 ? 0 : ends.at(index - 1) + 1;
    return text.midRef(begin, ends.at(index) - begin).toInt();
}

QString sampleRecord(int code, const QString &payload)
{
    return QString::number(code) + ',' + payload;
}

QString learnedRecord(int keyLine, const std::array<int, channelCount> &adc)
{
    QString record = QString::number(keyLine);
    for (int value : adc)
        record += ',' + QString::number(value);
    return record;
}

bool collides(const RecordFields &sample, const RecordFields &learned)
{
    if (sample.size() < sampleRecordFields || learned.size() < learnedRecordFields)
        return false;
    if (sample.at(1) != learned.at(0))
        return false;
    for (int i = 1; i < learnedRecordFields; ++i) {
        const qint64 difference = qint64(sample.at(i + 1)) - learned.at(i);
        if (qAbs(difference) > tolerance)
            return false;
    }
    return true;
}

int keyCodeOf(const QString &sample)
{
    return RecordFields(sample).at(0);
}

QString learnedRecordFrom(const QMap<int, QString> &samples)
{
    std::array<int, channelCount> sums{};
    for (const QString &sample : samples) {
        const RecordFields fields(sample);
        int field = firstValueOfSample;
        for (int &sum : sums)
            sum += fields.at(field++);
    }
    std::array<int, channelCount> means{};
    std::transform(sums.begin(), sums.end(), means.begin(),
                   [&samples](int sum) { return roundedMean(sum, samples.size()); });
    return learnedRecord(RecordFields(samples.first()).at(1), means);
}
