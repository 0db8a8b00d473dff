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

// Chooses the converter channel (1 to 3) that keeps the keys of one line furthest apart. The
// result holds that channel and its spacing: the smallest of its lowest value and all differences
// between neighbours. Of equal spacings the highest channel wins. Empty if no key has the line.
QMap<int, int> selectChannel(const QMap<int, QString> &learnedKeys, int keyLine);

// What the driver is told to compare: "road" is the channel, "interval" the tolerance around the
// learned value. -1 leaves the member out.
struct Decoding
{
    int road = -1;
    int interval = -1;
};

// `selection` is a result of selectChannel(). The interval is half the spacing, rounded down.
Decoding decodingOf(const QMap<int, int> &selection);

// The file's bytes. Keys on any other line than 2 and 3 are left out.
QByteArray configurationText(const QMap<int, QString> &learnedKeys, const Decoding &line2,
                             const Decoding &line3);
