#pragma once

#include "wheel.h"

#include <QJsonObject>

// The driver's reading of the configuration file: the code of the nearest key of the line that is
// within its interval, 0 if there is none.
int decode(const Measurement &measurement, const QJsonObject &configuration);

constexpr char decodeTableHeader[] = "key        learned values     road interval  decoded as\n";
QString decodeTableRow(const WheelKey &key, const QJsonObject &configuration,
                       const QString &decodedAs);

// "<count>:<line>,<value>,<value>,<value>"
QByteArray readingText(const Measurement &measurement);

// The key driver's side of its three files.
class Driver
{
public:
    // `root` stands for the root folder of the head unit, `rate` is in readings a second.
    Driver(Wheel wheel, const QString &root, int rate, quint32 seed);

    void hold(const WheelKey &key);
    void release();
    void writeNext(); // to be called once a period; writes nothing unless a key is held

    QByteArray flag() const;
    bool isLearning() const { return flag() != "0"; }
    QJsonObject configuration() const;

    Measurement press(const WheelKey &key) { return settledPress(wheel, key, &chance); }
    const WheelKey *held() const { return heldKey; } // nullptr for none
    QString reading() const { return lastReading; }
    QString function() const { return lastFunction; } // of the last press, empty while learning
    QString fault() const { return fileFault; } // of the folder or any reading so far

    const Wheel wheel;
    const int period; // ms
    QString writing = "truncate"; // or "overwrite", or "rename"

private:
    void write(const Measurement &measurement);

    const QString folder;
    Chance chance;
    const WheelKey *heldKey = nullptr;
    double drift = 0; // of the press
    int count = 0; // of the press's readings
    QByteArray lastReading;
    QString lastFunction;
    QString fileFault;
};
