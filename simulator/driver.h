#pragma once

#include "wheel.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

// The driver's reading of the configuration file: the code of the nearest key of the line that is
// within its interval, 0 if there is none.
int decode(const Measurement &measurement, const QJsonObject &configuration);

// That a press of the key is decoded as the function, and why: what was learned for the key. One
// that was not learned may still be within another's interval.
QString decodedText(const WheelKey &key, const QString &function, const QJsonObject &configuration);

// The content of a regular file; gives what is wrong, else nothing.
QString readRegularFile(const QString &path, QByteArray *content);

// The key driver's side of its three files.
class Driver
{
public:
    // `root` stands for the root folder of the head unit, `rate` is in readings a second.
    Driver(Wheel wheel, const QString &root, int rate, quint32 seed);

    void hold(const WheelKey &key);
    void release();
    void writeNext(); // to be called once a period; writes nothing unless a key is held

    QByteArray contentOf(const QString &name) const; // of a file of the exchange
    QByteArray flag() const { return contentOf("swc_flags"); }
    bool isLearning() const { return flag() != "0"; }
    QJsonObject configuration() const;

    Measurement press(const WheelKey &key) { return settledPress(wheel, key, &chance); }
    const WheelKey *held() const { return heldKey; } // nullptr for none
    QString function() const; // that the held key is decoded as; empty while learning
    QString reading() const { return lastReading; }
    QString fault() const { return fileFault; } // of any reading so far

    const Wheel wheel;
    const QString root;
    const int period; // ms
    Way way = Way::Truncate;

private:
    void write(const Measurement &measurement);

    const QString folder;
    Chance chance;
    const WheelKey *heldKey = nullptr;
    double drift = 0; // of the press
    int count = 0; // of the press's readings
    Measurement last{};
    QByteArray lastReading;
    QString fileFault;
};
