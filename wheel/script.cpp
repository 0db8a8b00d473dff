#include "script.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QIODevice>
#include <QRegularExpression>
#include <QRegularExpressionMatch>
#include <QStringList>
#include <QTextStream>
#include <QThread>

namespace {

constexpr int longestLine = 1000;

// In the meantime, writes readings of the pressed key.
void wait(int duration, Driver *driver)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < duration; driver->measure())
        QThread::msleep(Driver::period);
}

QString expectFlag(const QString &flag, int timeout, Driver *driver)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); driver->flag() != flag; wait(Driver::period, driver)) {
        if (elapsed.elapsed() >= timeout)
            return QString(R"(the flag is "%1", not "%2")").arg(driver->flag(), flag);
    }
    return QString();
}

// If there is an output, prints what each key is decoded as, and fails if it is not the key itself.
QString pressKeys(const QString &name, int duration, Driver *driver, QTextStream *output)
{
    bool isFound = false;
    QStringList wrong;
    for (const WheelKey &key : driver->wheel.keys) {
        if (key.name != name && name != "all")
            continue;
        isFound = true;
        driver->press(key);
        wait(duration, driver);
        const int code = driver->decodedCode();
        driver->release();
        wait(Driver::period, driver); // so that the program can read the release
        if (driver->hasFailed())
            return "can't write swc_keys";
        if (output)
            *output << key.name << " is decoded as " << driver->wheel.functionName(code) << endl;
        if (code != key.code)
            wrong.append(key.name);
    }
    if (!isFound)
        return "there is no key " + name;
    return output && !wrong.isEmpty() ? "not decoded as itself: " + wrong.join(", ") : QString();
}

QString execute(const QString &line, Driver *driver, QTextStream *output)
{
    const QRegularExpression form("^(press|decode|flag) (\\S+)(?: (\\d{1,6})ms)?$");
    const QRegularExpressionMatch match = form.match(line);
    if (line.isEmpty() || line.startsWith('#'))
        return QString();
    if (!match.hasMatch())
        return '"' + line
            + "\" is not one of press KEY [TIME], decode KEY [TIME], flag TEXT [TIME]";
    const QString command = match.captured(1);
    const QString word = match.captured(2);
    const QString time = match.captured(3);
    if (command == "flag")
        return expectFlag(word, time.isEmpty() ? 5000 : time.toInt(), driver);
    if (command == "press")
        return pressKeys(word, time.isEmpty() ? 400 : time.toInt(), driver, nullptr);
    if (driver->flag() != "0")
        return QString(R"(nothing is decoded while the flag is "%1")").arg(driver->flag());
    return pressKeys(word, time.toInt(), driver, output);
}

} // namespace

QString runScript(QIODevice *input, Driver *driver, QTextStream *output)
{
    QByteArray line;
    for (int number = 1; !(line = input->readLine(longestLine)).isEmpty(); ++number) {
        const QString error = execute(QString::fromUtf8(line).simplified(), driver, output);
        if (!error.isEmpty())
            return QString("line %1: %2").arg(number).arg(error);
        *output << "ok" << endl;
    }
    return QString();
}
