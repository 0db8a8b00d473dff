#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <array>
#include <random>

// Physical keys on two resistor ladders, and what a converter measures while one is pressed.

constexpr int idleValue = 4094; // a channel that a key leaves alone; the largest value of a sample
constexpr int releasedValue = 4095; // all three channels, when no key is pressed

// Three converter values on one key line, 2 or 3.
struct Measurement
{
    int line = 0;
    std::array<int, 3> adc{};
};

struct WheelKey
{
    QString name;
    QString label; // short, for the pad
    int code = 0; // the function that the key stands for
    Measurement contact; // free of noise
};

struct Wheel
{
    double noise = 0; // standard deviation of a value
    double drift = 0; // a whole press is off by up to this much, either way
    double bounce = 0; // the first value of a press is up to this much too high, the next by half
    QVector<WheelKey> keys;

    const WheelKey *find(const QString &name) const; // nullptr if there is none
    QString functionName(int code) const; // "none" for 0
};

// Gives false and one line for the user, with the number of the file's line, where it is no wheel.
bool parseWheel(const QByteArray &text, Wheel *wheel, QString *fault);

QByteArray builtInWheel();

// Chance from a seed. The standard's distributions differ between libraries; these do not.
class Noise
{
public:
    explicit Noise(quint32 seed) : engine(seed) { }

    double uniform(double from, double to);
    double normal(); // mean 0, standard deviation 1, never beyond 6

private:
    std::mt19937 engine;
};

// One press of a key; `wheel` and `noise` outlive it.
class Press
{
public:
    Press(const Wheel &wheel, const WheelKey &key, Noise *noise);

    Measurement next();
    Measurement settled(); // the next one after the contact has stopped bouncing
    Measurement released() const;

private:
    int valueOf(int contact, double offset);

    const Wheel &wheel;
    Measurement contact;
    Noise *noise;
    double drift;
    double bounce;
};
