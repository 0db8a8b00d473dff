#include "script.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QRegExp>
#include <QStringList>
#include <QTextStream>
#include <QThread>
#include <QVector>

#include <unistd.h>

namespace {

constexpr int longestLine = 1000;

// A held key goes on writing in the meantime.
void wait(Driver *driver, int duration)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < duration; driver->writeNext())
        QThread::msleep(static_cast<unsigned long>(driver->period));
}

void press(Driver *driver, const WheelKey &key, int duration)
{
    driver->hold(key);
    wait(driver, duration);
    driver->release();
    wait(driver, driver->period); // the release stays as long as any reading
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

QString expectDecoded(Driver *driver, const QVector<WheelKey> &keys, QTextStream *output)
{
    QStringList wrong;
    for (const WheelKey &key : keys) {
        const Decoded decoded = driver->decodePress(key);
        *output << decoded.text << endl;
        if (decoded.code != key.code)
            wrong.append(key.name);
    }
    return wrong.isEmpty() ? QString() : "not decoded as itself: " + wrong.join(", ");
}

// Gives what is wrong with the line or not as it expects, else nothing.
QString execute(const QString &line, Driver *driver, QTextStream *output)
{
    QRegExp form("(press|flag|decode(?! \\S+ )) (\\S+)(?: (\\d{1,6})ms)?");
    if (line.isEmpty() || line.startsWith('#'))
        return QString();
    if (!form.exactMatch(line))
        return '"' + line + "\" is none of press KEY [TIME], flag TEXT [TIME] and decode KEY";
    const QString command = form.cap(1), word = form.cap(2), time = form.cap(3);
    if (command == "flag")
        return expectFlag(driver, word, time.isEmpty() ? 5000 : time.toInt());
    const QVector<WheelKey> keys = driver->wheel.find(word);
    if (keys.isEmpty())
        return QString(R"(the wheel has no key "%1")").arg(word);
    if (command == "decode")
        return expectDecoded(driver, keys, output);
    for (const WheelKey &key : keys)
        press(driver, key, time.isEmpty() ? 400 : time.toInt());
    return driver->fault;
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
