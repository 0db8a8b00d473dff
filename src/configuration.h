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

// Returns the top-level object of the file. It is empty if the text is not a JSON object.
QJsonObject parseConfiguration(const QString &text);

// Returns the keys of a group in the order of the file. A key whose code is missing, 0 or not a
// whole number is left out.
QList<LoadedKey> keysOfGroup(const QJsonObject &configuration, const QString &group);

// Selects the converter channel (1 to 3) by which the driver tells the keys of one line apart.
// The result maps this channel to its spacing; it is empty if no key is on the line. The spacing of
// a channel is the smallest difference between two neighbouring values, or the lowest value if that
// is smaller. The channel with the largest spacing is selected. If several channels have it, the
// one with the highest number is selected.
QMap<int, int> selectChannel(const QMap<int, QString> &learnedKeys, int keyLine);

// How far a value may be from the learned one: half the spacing, rounded down.
int intervalFor(int spacing);

// Returns the content of the file. The channels are those that selectChannel() returned for key
// lines 2 and 3. Keys on other lines are not written. If the interval is -1, the member `interval`
// is left out. This can happen if a loaded file has negative values.
QByteArray configurationText(const QMap<int, QString> &learnedKeys,
                             const QMap<int, int> &line2Channel,
                             const QMap<int, int> &line3Channel);
