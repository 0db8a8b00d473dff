#include "script.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QRegExp>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <QThread>

#include <unistd.h>

namespace {

constexpr int longestLine = 1000;
const QMap<QString, int> defaultTimes = { { "press", 400 }, { "decode", 0 }, { "flag", 5000 } };

// A held key goes on writing in the meantime.
void wait(Driver *driver, int duration)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < duration; driver->writeNext())
        QThread::msleep(static_cast<unsigned long>(driver->period));
}

QString expectFlag(Driver *driver, const QString &flag, int limit)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); driver->flag() != flag; wait(driver, driver->period)) {
        if (elapsed.elapsed() >= limit)
            return QString(R"(the flag is "%1", not "%2")").arg(driver->flag(), flag);
    }
    return QString();
}

// The key of that name, or each for "all". With an output they are expected to be decoded as
// themselves.
QString pressKeys(Driver *driver, const QString &name, int duration, QTextStream *output)
{
    QString fault = "there is no key " + name;
    QStringList wrong;
    for (const WheelKey &key : driver->wheel.keys) {
        if (key.name != name && name != "all")
            continue;
        driver->hold(key);
        wait(driver, duration);
        const Decoded decoded = driver->decodeHeld();
        driver->release();
        wait(driver, driver->period); // the release stays as long as any reading
        fault = driver->fault;
        if (output)
            *output << decoded.text << endl;
        if (output && decoded.code != key.code)
            wrong.append(key.name);
    }
    return wrong.isEmpty() ? fault : "not decoded as itself: " + wrong.join(", ");
}

// Gives what is wrong with the line or not as it expects, else nothing.
QString execute(const QString &line, Driver *driver, QTextStream *output)
{
    QRegExp form("(press|flag|decode) (\\S+)(?: (\\d{1,6})ms)?");
    if (line.isEmpty() || line.startsWith('#'))
        return QString();
    if (!form.exactMatch(line))
        return '"' + line + "\" is none of press KEY [TIME], decode KEY [TIME], flag TEXT [TIME]";
    const QString command = form.cap(1);
    const QString word = form.cap(2);
    const int time = form.cap(3).isEmpty() ? defaultTimes.value(command) : form.cap(3).toInt();
    if (command == "flag")
        return expectFlag(driver, word, time);
    return pressKeys(driver, word, time, command == "decode" ? output : nullptr);
}

} // namespace

QString runScript(const QString &name, Driver *driver, QTextStream *output)
{
    QFile file(name);
    const QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    if (name == "-" ? !file.open(STDIN_FILENO, mode) : !file.open(mode))
        return QString("script %1: %2").arg(name, file.errorString());
    QByteArray line;
    for (int number = 1; !(line = file.readLine(longestLine)).isEmpty(); ++number) {
        const QString fault = execute(QString(line).simplified(), driver, output);
        if (!fault.isEmpty())
            return QString("script %1, line %2: %3").arg(name).arg(number).arg(fault);
        *output << "ok" << endl;
    }
    return QString();
}
