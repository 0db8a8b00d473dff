#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

constexpr int idleValue = 4094; // of a channel that a key does not affect
constexpr int releasedValue = 4095; // of all channels while no key is pressed

struct WheelKey
{
    QString name; // one word
    QString label; // the text on the key
    int code = 0; // of the function, above 0
    int line = 0; // the key line, 2 or 3
    QVector<int> adc; // the three values without noise, 0 to idleValue
};

struct Wheel
{
    double noise = 0; // standard deviation of a value, 0 to 4095
    QVector<WheelKey> keys;

    // The name of the key with this code, "none" for 0, or else the code itself.
    QString functionName(int code) const;
};

// Reads the JSON text that docs/wheel.md describes. Returns an error message, empty on success.
QString parseWheel(const QByteArray &text, Wheel *wheel);
