#pragma once

#include "readingfile.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <random>

// Physical keys on two resistor ladders, and what a converter measures while one is pressed.

constexpr int idleValue = 4094; // a channel that a key leaves alone; the largest value of a sample
constexpr int releasedValue = 4095; // all channels, when no key is pressed

struct WheelKey
{
    QString name;
    QString label; // short, for the pad
    int code = 0; // the function that the key stands for
    Measurement contact{}; // free of noise
};

struct Wheel
{
    double noise = 0; // standard deviation of a value
    double drift = 0; // a whole press is off by up to this much, either way
    double bounce = 0; // the first value of a press is up to this much too high, the next by half
    QVector<WheelKey> keys;

    QString functionName(int code) const; // a key's name, or else the code itself
};

// Gives what is wrong, else nothing.
QString parseWheel(const QByteArray &text, Wheel *wheel);

using Chance = std::mt19937;
double between(double from, double to, Chance *chance);

// The reading of that number, from 0, in a press that is off by `drift`. Each bounces half as much.
Measurement measure(const Wheel &wheel, const WheelKey &key, double drift, int number,
                    Chance *chance);
