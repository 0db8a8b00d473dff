#include "script.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegExp>
#include <QStringList>
#include <QTextStream>
#include <QThread>

#include <poll.h>
#include <unistd.h>

namespace {

struct Command
{
    const char *usage;
    const char *meaning;
};

const Command commands[] = {
    { "press KEY [TIME]", "hold the key, let go after 400ms or TIME" },
    { "hold KEY", "press and go on with the script" },
    { "release", "let go" },
    { "wait TIME", "do nothing else for that time" },
    { "flag TEXT [TIME]", "expect the flag file to hold TEXT within 5s or TIME" },
    { "decode KEY|all [KEY|none]", "expect a new press to be decoded as the key or as that" },
    { "write truncate|overwrite|rename", "change the way of writing" },
};

// "600ms" or "2s" in milliseconds; -1 for anything else.
int milliseconds(const QString &text)
{
    QRegExp time("(\\d{1,6})(ms|s)");
    return time.exactMatch(text) ? time.cap(1).toInt() * (time.cap(2) == "s" ? 1000 : 1) : -1;
}

// A held key goes on writing in the meantime.
QString wait(Driver *driver, int duration)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < duration) {
        QThread::msleep(static_cast<unsigned long>(driver->period));
        driver->writeNext();
    }
    return QString();
}

QString press(Driver *driver, const WheelKey &key, const QString &time)
{
    driver->hold(key);
    wait(driver, milliseconds(time));
    driver->release();
    return wait(driver, driver->period); // the release stays as long as any reading
}

QString expectFlag(Driver *driver, const QString &flag, const QString &limit)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (driver->flag() != flag.toUtf8()) {
        if (elapsed.elapsed() >= milliseconds(limit))
            return QString(R"(the flag is "%1" after %2, not "%3")")
                .arg(QString::fromUtf8(driver->flag()), limit, flag);
        wait(driver, driver->period);
    }
    return QString();
}

QString expectDecoded(Driver *driver, const QStringList &words, QTextStream *output)
{
    if (driver->isLearning())
        return "nothing is decoded while learning is on";
    const bool all = words.at(1) == "all";
    const QJsonObject configuration = driver->configuration();
    QString table = decodeTableHeader;
    QStringList wrong;
    for (const WheelKey &key : driver->wheel.keys) {
        if (!all && key.name != words.at(1))
            continue;
        const int code = decode(driver->press(key), configuration);
        const QString decoded = driver->wheel.functionName(code);
        table += decodeTableRow(key, configuration, decoded);
        if (decoded != words.value(2, key.name))
            wrong.append(key.name + " is decoded as " + decoded);
    }
    *output << (all ? table : QString());
    return wrong.join(", ");
}

// Whether a line may have that word where the command's usage has this one.
bool fits(const QString &word, const QString &usage, const Wheel &wheel)
{
    QStringList choices = usage.split(QRegExp("[][|]")); // brackets leave an empty one
    return (choices.removeAll("KEY") > 0 && wheel.find(word))
        || (choices.removeAll("TIME") > 0 && milliseconds(word) >= 0)
        || (choices.removeAll("TEXT") > 0 && !word.isEmpty()) || choices.contains(word);
}

QString run(const QStringList &words, Driver *driver, QTextStream *output)
{
    const QString &name = words.first();
    const WheelKey *key = driver->wheel.find(words.value(1));
    if (name == "press")
        return press(driver, *key, words.value(2, "400ms"));
    if (name == "wait")
        return wait(driver, milliseconds(words.at(1)));
    if (name == "flag")
        return expectFlag(driver, words.at(1), words.value(2, "5s"));
    if (name == "decode")
        return expectDecoded(driver, words, output);
    if (name == "hold")
        driver->hold(*key);
    else if (name == "release")
        driver->release();
    else
        driver->writing = words.at(1);
    return QString();
}

// A held key goes on writing while the next line is not there yet.
bool readLine(QFile *file, Driver *driver, QString *line)
{
    pollfd input = { file->handle(), POLLIN, 0 };
    while (poll(&input, 1, driver->period) == 0)
        driver->writeNext();
    *line = QString::fromUtf8(file->readLine());
    return !line->isEmpty();
}

} // namespace

QString scriptHelp()
{
    QString text;
    for (const Command &command : commands)
        text += QString("  %1  %2\n").arg(command.usage, -32).arg(command.meaning);
    return text;
}

QString execute(const QString &line, Driver *driver, QTextStream *output)
{
    const QStringList words = line.simplified().split(' ');
    if (words.first().isEmpty() || words.first().startsWith('#'))
        return QString();
    for (const Command &command : commands) {
        const QStringList usage = QString(command.usage).split(' ');
        if (usage.first() != words.first())
            continue;
        for (int i = 1; i < qMax(usage.size(), words.size()); ++i) {
            if (!fits(words.value(i), usage.value(i), driver->wheel))
                return QString(R"("%1" does not fit: %2)").arg(words.value(i), command.usage);
        }
        const QString fault = run(words, driver, output);
        return fault.isEmpty() ? driver->fault() : fault;
    }
    return QString(R"(there is no command "%1")").arg(words.first());
}

int runScript(const QString &name, Driver *driver, QTextStream *output, QTextStream *errors)
{
    QFile file(name);
    const QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    QString fault;
    if (!(name == "-" ? file.open(STDIN_FILENO, mode) : file.open(mode)))
        fault = file.errorString();
    QString line;
    for (int number = 1; fault.isEmpty() && readLine(&file, driver, &line); ++number) {
        fault = execute(line, driver, output);
        if (fault.isEmpty())
            *output << "ok" << endl;
        else
            fault = QString("line %1: %2").arg(number).arg(fault);
    }
    driver->release();
    if (!fault.isEmpty())
        *errors << QString("script %1: %2").arg(name, fault) << endl;
    return fault.isEmpty() ? 0 : 1;
}
