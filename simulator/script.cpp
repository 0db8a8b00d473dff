#include "script.h"

#include <QElapsedTimer>
#include <QFile>
#include <QPair>
#include <QRegExp>
#include <QStringList>
#include <QTextStream>
#include <QThread>

#include <poll.h>
#include <unistd.h>

namespace {

constexpr int longestLine = 1000;
constexpr char timeForm[] = "whole milliseconds or seconds, as 600ms or 2s";

// "600ms" or "2s" in milliseconds; -1 for anything else.
int milliseconds(const QString &text)
{
    QRegExp time("(\\d{1,6})(ms|s)");
    return time.exactMatch(text) ? time.cap(1).toInt() * (time.cap(2) == "s" ? 1000 : 1) : -1;
}

// Usage and meaning.
const QPair<const char *, const char *> commands[] = {
    { "press KEY [TIME]", "hold the key, let go after 400ms or TIME" },
    { "hold KEY", "press and go on with the script" },
    { "release", "let go" },
    { "wait TIME", "do nothing else for that time" },
    { "flag TEXT [TIME]", "expect the flag file to hold TEXT within 5s or TIME" },
    { "decode KEY|all [KEY|none]", "expect a new press to be decoded as the key or as that" },
    { "write WAY", "change the way of writing" },
};

// A held key goes on writing in the meantime.
void wait(Driver *driver, int duration)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < duration; driver->writeNext())
        QThread::msleep(static_cast<unsigned long>(driver->period));
}

QString expectFlag(Driver *driver, const QString &flag, const QString &limit)
{
    QElapsedTimer elapsed;
    for (elapsed.start(); driver->flag() != flag.toUtf8(); wait(driver, driver->period)) {
        if (elapsed.elapsed() >= milliseconds(limit))
            return QString(R"(the flag is "%1" after %2, not "%3")")
                .arg(QString(driver->flag()), limit, flag);
    }
    return QString();
}

QString expectDecoded(Driver *driver, const QStringList &words, QTextStream *output)
{
    if (driver->isLearning())
        return "nothing is decoded while learning is on";
    QStringList wrong;
    for (const WheelKey &key : driver->wheel.keys) {
        if (words.at(1) != "all" && words.at(1) != key.name)
            continue;
        const int code = decode(driver->press(key), driver->configuration());
        const QString function = driver->wheel.functionName(code);
        const QString text = decodedText(key, function, driver->configuration());
        if (words.at(1) == "all")
            *output << text << '\n';
        if (function != words.value(2, key.name))
            wrong.append(text);
    }
    return wrong.join("; ");
}

QString run(const QStringList &words, Driver *driver, QTextStream *output)
{
    const QString &name = words.first();
    const bool press = name == "press";
    if (name == "flag")
        return expectFlag(driver, words.at(1), words.value(2, "5s"));
    if (name == "decode")
        return expectDecoded(driver, words, output);
    if (name == "write")
        driver->way = static_cast<Way>(wayNames().indexOf(words.at(1)));
    if (name == "hold" || press)
        driver->hold(*driver->wheel.find(words.at(1)));
    if (name == "wait" || press)
        wait(driver, milliseconds(press ? words.value(2, "400ms") : words.at(1)));
    if (name == "release" || press)
        driver->release();
    if (press)
        wait(driver, driver->period); // the release stays as long as any reading
    return QString();
}

// What is wrong with a line's word where the command's usage has this one, else nothing.
QString faultOf(const QString &word, const QString &usage, const Wheel &wheel)
{
    if (word.isEmpty())
        return usage.isEmpty() || usage.startsWith('[') ? QString() : usage + " is missing";
    if (usage.isEmpty())
        return QString(R"("%1" is too much)").arg(word);
    QStringList choices = QString(usage).remove('[').remove(']').split('|');
    const QString kind = choices.takeFirst();
    if (kind == "TEXT" || (kind == "TIME" && milliseconds(word) >= 0))
        return QString();
    if (kind == "TIME")
        return QString(R"("%1" is no TIME: %2)").arg(word, timeForm);
    choices += kind == "KEY" ? wheel.keyNames() : wayNames();
    return choices.contains(word)
        ? QString()
        : QString(R"(there is no %1 "%2", only %3)").arg(kind.toLower(), word, choices.join(", "));
}

// Gives what is wrong with the line or not as it expects, else nothing.
QString execute(const QString &line, Driver *driver, QTextStream *output)
{
    const QStringList words = line.simplified().split(' ');
    if (words.first().isEmpty() || words.first().startsWith('#'))
        return QString();
    for (const auto &command : commands) {
        const QStringList usage = QString(command.first).split(' ');
        if (usage.first() != words.first())
            continue;
        QString fault;
        for (int i = 1; fault.isEmpty() && i < qMax(usage.size(), words.size()); ++i)
            fault = faultOf(words.value(i), usage.value(i), driver->wheel);
        if (!fault.isEmpty())
            return QString("%1 (%2)").arg(fault, command.first);
        fault = run(words, driver, output);
        return fault.isEmpty() ? driver->fault() : fault;
    }
    return QString(R"(there is no command "%1")").arg(words.first());
}

// A held key goes on writing while the next line is not there yet. Empty at the end.
QString readLine(QFile *file, Driver *driver)
{
    pollfd input = { file->handle(), POLLIN, 0 };
    while (poll(&input, 1, driver->period) == 0)
        driver->writeNext();
    return QString::fromUtf8(file->readLine(longestLine));
}

} // namespace

QString scriptHelp()
{
    QString text;
    for (const auto &command : commands)
        text += QString("  %1  %2\n").arg(command.first, -28).arg(command.second);
    return text + QString("TIME is in %1; WAY is one of %2.").arg(timeForm, wayNames().join(", "));
}

int runScript(const QString &name, Driver *driver, QTextStream *output, QTextStream *errors)
{
    QFile file(name);
    const QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    const bool open = name == "-" ? file.open(STDIN_FILENO, mode) : file.open(mode);
    QString fault = open ? QString() : file.errorString();
    for (int number = 1; fault.isEmpty(); ++number) {
        const QString line = readLine(&file, driver);
        if (line.isEmpty())
            break;
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
