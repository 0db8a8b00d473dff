#pragma once

#include <QMap>
#include <QString>
#include <QVector>

// Comma-separated records. A sample record is "code,keyLine,adc,adc,adc[,more]", a learned record
// "keyLine,adc,adc,adc". A learned record from the configuration file may have fewer fields or
// more.

// The fields as integers; one that is not a decimal int gives 0.
QVector<int> fieldsOf(const QString &record);

QString sampleRecord(int code, const QString &payload);

// Returns true if both are on one key line and no converter value differs by more than 60. A record
// that lacks a field collides with nothing.
bool collides(const QString &sample, const QString &learned);

// The key code under which a sample was collected.
int keyCodeOf(const QString &sample);

// The key line of the first sample and the means of all, rounded half up. `samples` must not be
// empty, and its converter values must lie in 0..4094.
QString learnedRecordFrom(const QMap<int, QString> &samples);
