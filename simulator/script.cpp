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

constexpr int longestLine = 1000;
constexpr char timeForm[] = "whole milliseconds or seconds, as 600ms or 2s";

struct Command
{
    const char *usage;
    const char *meaning;
    QString (*run)(Driver *driver, const QStringList &words, QTextStream *output);
};

// "600ms" or "2s" in milliseconds; -1 for anything else.
int milliseconds(const QString &text)
{
    QRegExp time("(\\d{1,6})(ms|s)");
    return time.exactMatch(text) ? time.cap(1).toInt() * (time.cap(2) == "s" ? 1000 : 1) : -1;
}

// A held key goes on writing in the meantime.
QString pass(Driver *driver, int duration)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < duration) {
        QThread::msleep(static_cast<unsigned long>(driver->period));
        driver->writeNext();
    }
    return QString();
}

QString press(Driver *driver, const QStringList &words, QTextStream *)
{
    driver->hold(*driver->wheel.find(words.at(1)));
    pass(driver, milliseconds(words.value(2, "400ms")));
    driver->release();
    return pass(driver, driver->period); // the release stays as long as any reading
}

QString hold(Driver *driver, const QStringList &words, QTextStream *)
{
    driver->hold(*driver->wheel.find(words.at(1)));
    return QString();
}

QString release(Driver *driver, const QStringList &, QTextStream *)
{
    driver->release();
    return QString();
}

QString wait(Driver *driver, const QStringList &words, QTextStream *)
{
    return pass(driver, milliseconds(words.at(1)));
}

QString expectFlag(Driver *driver, const QStringList &words, QTextStream *)
{
    const QString limit = words.value(2, "5s");
    QElapsedTimer elapsed;
    elapsed.start();
    while (driver->flag() != words.at(1).toUtf8()) {
        if (elapsed.elapsed() >= milliseconds(limit))
            return QString(R"(the flag is "%1" after %2, not "%3")")
                .arg(QString::fromUtf8(driver->flag()), limit, words.at(1));
        pass(driver, driver->period);
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
    QString notes;
    QStringList wrong;
    for (const WheelKey &key : driver->wheel.keys) {
        if (!all && key.name != words.at(1))
            continue;
        const int code = decode(driver->press(key), configuration);
        const QString decoded = driver->wheel.functionName(code);
        table += decodeTableRow(key, learnedKey(key, configuration), decoded);
        notes += driver->noteOn(key, code);
        if (decoded != words.value(2, key.name))
            wrong.append(key.name + " is decoded as " + decoded);
    }
    *output << (all ? table + notes : QString());
    return wrong.join(", ");
}

QStringList ways()
{
    QStringList names;
    for (const char *name : wayNames)
        names.append(name);
    return names;
}

QString setWay(Driver *driver, const QStringList &words, QTextStream *)
{
    driver->way = static_cast<Way>(ways().indexOf(words.at(1)));
    return QString();
}

const Command commands[] = {
    { "press KEY [TIME]", "hold the key, let go after 400ms or TIME", press },
    { "hold KEY", "press and go on with the script", hold },
    { "release", "let go", release },
    { "wait TIME", "do nothing else for that time", wait },
    { "flag TEXT [TIME]", "expect the flag file to hold TEXT within 5s or TIME", expectFlag },
    { "decode KEY|all [KEY|none]", "expect a new press to be decoded as the key or as that",
      expectDecoded },
    { "write WAY", "change the way of writing", setWay },
};

// What is wrong with a line's word where the command's usage has this one, else nothing.
QString faultOf(const QString &word, const QString &usage, const Wheel &wheel)
{
    const QStringList kinds = QString(usage).remove('[').remove(']').split('|');
    if (word.isEmpty())
        return usage.isEmpty() || usage.startsWith('[') ? QString() : usage + " is missing";
    if (usage.isEmpty())
        return QString(R"("%1" is too much)").arg(word);
    if (kinds.contains("TEXT") || (kinds.contains("TIME") && milliseconds(word) >= 0))
        return QString();
    if (kinds.contains("TIME"))
        return QString(R"("%1" is no TIME: %2)").arg(word, timeForm);
    QStringList choices = kinds.contains("WAY") ? ways() : kinds.mid(1);
    for (const WheelKey &key : wheel.keys) {
        if (kinds.contains("KEY"))
            choices.append(key.name);
    }
    return choices.contains(word) ? QString()
                                  : QString(R"(there is no %1 "%2", only %3)")
                                        .arg(kinds.first().toLower(), word, choices.join(", "));
}

// A held key goes on writing while the next line is not there yet.
bool readLine(QFile *file, Driver *driver, QString *line)
{
    pollfd input = { file->handle(), POLLIN, 0 };
    while (poll(&input, 1, driver->period) == 0)
        driver->writeNext();
    *line = QString::fromUtf8(file->readLine(longestLine));
    return !line->isEmpty();
}

} // namespace

QString scriptHelp()
{
    QString text;
    for (const Command &command : commands)
        text += QString("  %1  %2\n").arg(command.usage, -28).arg(command.meaning);
    return text + QString("TIME is in %1; WAY is one of %2.").arg(timeForm, ways().join(", "));
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
        QString fault;
        for (int i = 1; fault.isEmpty() && i < qMax(usage.size(), words.size()); ++i)
            fault = faultOf(words.value(i), usage.value(i), driver->wheel);
        if (!fault.isEmpty())
            return QString("%1 (%2)").arg(fault, command.usage);
        fault = command.run(driver, words, output);
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
