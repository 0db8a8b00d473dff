#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

class QJsonObject;

// The JSON file that the key driver uses to decode key presses: two groups of keys, one for each
// key line. docs/driver.md describes it.

constexpr char line2Group[] = "direction0";
constexpr char line3Group[] = "direction1";

struct LoadedKey
{
    int code;
    QString record; // "keyLine,adc,..." with as many values as the file has
};

// The file's top-level object; an empty one if the text is not a JSON object.
QJsonObject parseConfiguration(const QString &text);

// The keys of one group in file order, without those that have no whole, non-zero code.
QList<LoadedKey> keysOfGroup(const QJsonObject &configuration, const QString &group);

// Selects the converter channel (1 to 3) by which the driver tells the keys of one line apart.
// Returns it with its spacing, or an empty map if no key is on the line. The spacing of a channel
// is the smallest difference between neighbouring values, or the lowest value if that is smaller.
// The channel with the largest spacing is selected; of several, the one with the highest number.
QMap<int, int> selectChannel(const QMap<int, QString> &learnedKeys, int keyLine);

// The tolerance around a learned value: half the spacing, rounded down.
int intervalFor(int spacing);

// The file's bytes, given the selected channel of each line. Keys on any other line than 2 and 3
// are left out. If an interval comes out as -1, it is left out too.
QByteArray configurationText(const QMap<int, QString> &learnedKeys, const QMap<int, int> &line2,
                             const QMap<int, int> &line3);
