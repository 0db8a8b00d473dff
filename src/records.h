#pragma once

#include <QMap>
#include <QString>
#include <QVector>

// A record is a string of comma-separated numbers. A sample record is
// "code,keyLine,adc,adc,adc[,more]". A learned record is "keyLine,adc,adc,adc"; one that was loaded
// from the configuration file may have fewer or more values.

// Returns the fields as integers. A field that is not a decimal int becomes 0.
QVector<int> fieldsOf(const QString &record);

QString sampleRecord(int code, const QString &payload);

// Returns true if both records have the same key line and no converter value differs by more than
// 60. Returns false if a value is missing.
bool collides(const QString &sample, const QString &learned);

int keyCodeOf(const QString &sample);

// Returns the learned record of a key: the key line of the first sample, and for each channel the
// mean of all samples, rounded half up. There must be at least one sample, and all converter values
// must be in 0..4094.
QString learnedRecordFrom(const QMap<int, QString> &samples);
