#pragma once

#include "wheel.h"

#include <QVector>

class QJsonObject;

struct LearnedKey
{
    Measurement contact;
    int code = 0;
    int road = 0; // 1 to 3, the channel to compare
    int interval = 0; // how far a measured value may be off
};

// What the key driver makes of the configuration file. It knows nothing of how the file is made.
class Decoder
{
public:
    explicit Decoder(const QByteArray &configuration);

    bool isEmpty() const { return keys.isEmpty(); }
    const LearnedKey *find(int code) const; // nullptr if there is none

    // The code of the nearest key of the line within its interval, 0 if there is none.
    int decode(const Measurement &measurement) const;

private:
    void addGroup(const QJsonObject &configuration, const char *group, int line);

    QVector<LearnedKey> keys;
};

// The rows of the table "key, learned values, road, interval, decoded as".
QString decodeTableHeader();
QString decodeTableRow(const WheelKey &key, const Decoder &decoder, const QString &decodedAs);
