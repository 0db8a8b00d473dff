#pragma once

#include "wheel.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <random>

// Returns the code of the nearest learned key whose interval contains the reading, or 0 if there is
// none. The configuration is the content of direction.json.
int decode(int line, const QVector<int> &adc, const QByteArray &configuration);

// Returns the content of a file, at most 1 MiB, or an empty array if it can't be read.
QByteArray readFile(const QString &path);

// Stands in for the key driver: writes the readings of the pressed key to swc_keys, and decodes
// them with direction.json while the flag is 0.
class Driver
{
public:
    static constexpr int period = 50; // between two readings, in milliseconds

    // The root is the folder above media/flash/nvm.
    Driver(Wheel wheel, QString root);

    // Writes the first reading. The key is one of the wheel's.
    void press(const WheelKey &key);
    // Writes another measurement if a key is pressed; to be called once a period.
    void measure();
    void release();

    QByteArray reading() const { return text; } // written last
    bool hasFailed() const { return failed; } // to write swc_keys in the last press
    QString flag() const; // empty if there is none
    int decodedCode() const; // of the pressed key; -1 if there is none or the flag is not 0

    const Wheel wheel;
    const QString root;

private:
    void write(const QVector<int> &values);
    QString path(const QString &name) const;

    const WheelKey *key = nullptr;
    QVector<int> adc; // of the last measurement
    QByteArray text;
    bool failed = false;
    std::mt19937 generator;
};
