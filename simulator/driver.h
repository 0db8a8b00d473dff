#pragma once

#include "wheel.h"

#include <QByteArray>
#include <QString>

struct Decoded
{
    int code = 0; // 0 for no function
    QString text; // that the key is decoded as its function, and why
};

// The driver's reading of the configuration file: of the learned keys of the line that have the
// measurement within their interval, the nearest.
Decoded decode(const Measurement &measurement, const WheelKey &key, const Wheel &wheel,
               const QByteArray &configuration);

// The content of a file; empty where there is none to read.
QByteArray contentOfFile(const QString &path);

// The key driver's side of its three files.
class Driver
{
public:
    void hold(const WheelKey &key);
    void release();
    void writeNext(); // to be called once a period; writes nothing unless a key is held

    QByteArray contentOf(const QString &name) const;
    QString flag() const { return contentOf("swc_flags"); }
    Decoded decodeHeld() const; // the last reading; nothing while learning

    Wheel wheel;
    QString root = "."; // stands for the root folder of the head unit
    int period = 50; // ms
    Way way = Way::Truncate;
    Chance chance;

    const WheelKey *held = nullptr;
    QByteArray reading; // the last one
    QString fault; // of any reading so far

private:
    void write(const Measurement &measurement);

    double drift = 0; // of the press
    int count = 0; // of the press's readings
    Measurement last{};
};
