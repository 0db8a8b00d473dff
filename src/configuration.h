#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

class QJsonObject;

// The JSON file that the key driver decodes with: two groups of keys, one for each key line.
// docs/configuration.md describes it.

constexpr char line2Group[] = "direction0";
constexpr char line3Group[] = "direction1";

struct LoadedKey
{
    int code;
    QString record; // "keyLine,adc,..." with as many values as the file has
};

// The file's top-level object; an empty one where the text is no JSON object.
QJsonObject parseConfiguration(const QByteArray &text);

// The keys of one group in file order, without those that have no whole, non-zero code.
QList<LoadedKey> keysOfGroup(const QJsonObject &configuration, const QString &group);

// The converter channel (1 to 3) by which the driver tells the keys of one line apart, the file's
// "road". The spacing is the smallest of the channel's lowest value and all differences between
// neighbours. -1 where no key has the line.
struct ChannelChoice
{
    int channel = -1;
    int spacing = -1;

    // The tolerance around a learned value: half the spacing, rounded down.
    int interval() const { return spacing >> 1; }
};

// The channel with the largest spacing, of equal ones the highest.
ChannelChoice selectChannel(const QMap<int, QString> &learnedKeys, int keyLine);

// The file's bytes. Keys on any other line than 2 and 3 are left out, and so is a road or an
// interval of -1.
QByteArray configurationText(const QMap<int, QString> &learnedKeys, const ChannelChoice &line2,
                             const ChannelChoice &line3);
