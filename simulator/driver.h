#pragma once

#include "decoder.h"
#include "wheel.h"

#include <QObject>
#include <QTimer>

#include <memory>

struct DriverOptions
{
    QString root = "."; // stands for the root folder of the head unit
    QString writing = "truncate"; // one of Driver::waysOfWriting()
    int rate = 20; // readings a second
    quint32 seed = 1;
};

// The key driver's side of its three files.
class Driver : public QObject
{
    Q_OBJECT

public:
    Driver(Wheel wheel, const DriverOptions &options);

    // Makes the platform's two files where they are missing. Gives what is wrong, else nothing.
    QString start();

    static QStringList waysOfWriting();
    bool setWriting(const QString &way); // false if there is no such way
    bool write(const QByteArray &content);

    int period() const { return 1000 / options.rate; } // ms from one reading to the next
    bool isHeld() const { return press != nullptr; }
    void hold(const WheelKey &key);
    void release();

    QByteArray flag() const;
    bool isLearning() const { return flag() != "0"; }
    Decoder configuration() const;
    Measurement settledPress(const WheelKey &key);

signals:
    // The code is 0 where the configuration has none for the reading, and while learning.
    void wrote(const QString &reading, int decodedCode);
    void failed(const QString &fault);

private slots:
    void writeNext();

private:
    QString path(const QString &name) const;
    void writeReading(const Measurement &measurement, int decodedCode);

    const Wheel wheel;
    DriverOptions options;
    Noise noise;
    Decoder decoder;
    QTimer timer;
    std::unique_ptr<Press> press;
};

// "<count>:<line>,<value>,<value>,<value>"
QByteArray readingText(const Measurement &measurement);
