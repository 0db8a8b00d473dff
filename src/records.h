#pragma once

#include "reading.h"

#include <QMap>
#include <QString>
#include <QVarLengthArray>

#include <array>

// Comma-separated records. A sample record is "code,keyLine,adc,adc,adc[,more]", a learned record
// "keyLine,adc,adc,adc". One from the configuration file may have fewer fields or more.

constexpr int learnedRecordFields = 1 + channelCount;

// A record split once, its numbers read as they are asked for: most comparisons end with the first
// values. Reading past its end, or a field that is no decimal int, gives 0.
class RecordFields
{
public:
    explicit RecordFields(QString record);

    int size() const { return ends.size(); }
    int at(int index) const;

private:
    QString text;
    QVarLengthArray<int, 8> ends; // of the fields, where the next comma is
};

QString sampleRecord(int code, const QString &payload);
QString learnedRecord(int keyLine, const std::array<int, channelCount> &adc);

// True if both are on one key line and no converter value differs by more than 60. A record that
// lacks a field collides with nothing.
bool collides(const RecordFields &sample, const RecordFields &learned);

// The key code under which a sample was collected.
int keyCodeOf(const QString &sample);

// Key line of the first sample and the means of all, rounded half up. `samples` must not be
// empty, and its converter values lie in 0..4094.
QString learnedRecordFrom(const QMap<int, QString> &samples);
