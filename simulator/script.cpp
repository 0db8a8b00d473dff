#include "script.h"

#include "linereader.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QRegExp>
#include <QTextStream>

#include <utility>

namespace {

constexpr int longestTime = 600000; // ms
constexpr int defaultPress = 400; // ms
constexpr int defaultFlagLimit = 5000; // ms
constexpr int flagPolling = 20; // ms

// "600ms" or "2s" in milliseconds; -1 for anything else.
int milliseconds(const QString &text)
{
    QRegExp time("(\\d{1,6})(ms|s)");
    if (!time.exactMatch(text))
        return -1;
    const int value = time.cap(1).toInt() * (time.cap(2) == "s" ? 1000 : 1);
    return value <= longestTime ? value : -1;
}

QString badTime(const QString &text)
{
    return QString("\"%1\" is no time such as 600ms or 2s, at most 600s").arg(text);
}

QString unknownKey(const QString &name)
{
    return QString("no key of the wheel is named \"%1\"").arg(name);
}

void runEventLoop(int duration)
{
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    QObject::connect(&timer, SIGNAL(timeout()), &loop, SLOT(quit()));
    timer.start(duration);
    loop.exec();
}

} // namespace

const QVector<Script::Command> Script::commands = {
    { "press", "press KEY [TIME]", "hold the key, let go after 400ms or TIME", 2, 3,
      &Script::press },
    { "hold", "hold KEY", "press and go on with the script", 2, 2, &Script::hold },
    { "release", "release", "let go", 1, 1, &Script::release },
    { "wait", "wait TIME", "do nothing else for that time", 2, 2, &Script::wait },
    { "flag", "flag TEXT [TIME]", "expect the flag file to hold TEXT within 5s or TIME", 2, 3,
      &Script::expectFlag },
    { "decode", "decode KEY [KEY|none]", "expect a new press to be decoded as the key or as that",
      2, 3, &Script::decode },
    { "decode", "decode all", "the same for every key, with a table", 2, 2, &Script::decode },
    { "write", "write truncate|overwrite|rename", "change the way of writing", 2, 2,
      &Script::setWriting },
};

Script::Script(Driver *driver, Wheel wheel, QTextStream *output)
    : driver(driver), wheel(std::move(wheel)), output(output)
{
    connect(driver, SIGNAL(failed(QString)), this, SLOT(onFailed(QString)));
}

QString Script::help()
{
    QString text;
    for (const Command &command : commands)
        text += QString("  %1  %2\n").arg(command.usage, -32).arg(command.meaning);
    return text;
}

QString Script::execute(const QString &line)
{
    const QStringList words = line.simplified().split(' ', QString::SkipEmptyParts);
    if (words.isEmpty() || words.first().startsWith('#'))
        return QString();
    for (const Command &command : commands) {
        if (words.first() != command.name)
            continue;
        if (words.size() < command.fewestWords || words.size() > command.mostWords)
            return QString("the command is: %1").arg(command.usage);
        QString fault = (this->*command.handler)(words);
        return fault.isEmpty() ? writeFault : fault;
    }
    return QString("there is no command \"%1\"").arg(words.first());
}

QString Script::run(int descriptor)
{
    LineReader reader(descriptor);
    QString line;
    QString fault;
    for (int number = 1; fault.isEmpty() && reader.next(&line); ++number) {
        fault = execute(line);
        if (fault.isEmpty())
            *output << "ok" << endl;
        else
            fault = QString("line %1: %2").arg(number).arg(fault);
    }
    if (driver->isHeld())
        driver->release();
    return fault;
}

QString Script::press(const QStringList &words)
{
    const int duration = words.size() > 2 ? milliseconds(words.at(2)) : defaultPress;
    if (duration < 0)
        return badTime(words.at(2));
    QString fault = hold(words);
    if (!fault.isEmpty())
        return fault;
    runEventLoop(duration);
    driver->release();
    runEventLoop(driver->period()); // the release stays as long as any reading
    return QString();
}

QString Script::hold(const QStringList &words)
{
    const WheelKey *key = wheel.find(words.at(1));
    if (!key)
        return unknownKey(words.at(1));
    if (driver->isHeld())
        return "a key is held already";
    driver->hold(*key);
    return QString();
}

QString Script::release(const QStringList &)
{
    if (!driver->isHeld())
        return "no key is held";
    driver->release();
    return QString();
}

QString Script::wait(const QStringList &words)
{
    const int duration = milliseconds(words.at(1));
    if (duration < 0)
        return badTime(words.at(1));
    runEventLoop(duration);
    return QString();
}

QString Script::expectFlag(const QStringList &words)
{
    const int limit = words.size() > 2 ? milliseconds(words.at(2)) : defaultFlagLimit;
    if (limit < 0)
        return badTime(words.at(2));
    QElapsedTimer elapsed;
    elapsed.start();
    while (driver->flag() != words.at(1).toUtf8()) {
        if (elapsed.elapsed() >= limit)
            return QString(R"(the flag is "%1" after %2ms, not "%3")")
                .arg(QString::fromUtf8(driver->flag()))
                .arg(limit)
                .arg(words.at(1));
        runEventLoop(flagPolling);
    }
    return QString();
}

QString Script::decode(const QStringList &words)
{
    if (driver->isLearning())
        return QString("nothing is decoded while the flag is \"%1\"")
            .arg(QString::fromUtf8(driver->flag()));
    const Decoder decoder = driver->configuration();
    if (words.at(1) == "all")
        return decodeAll(decoder);
    const WheelKey *key = wheel.find(words.at(1));
    if (!key)
        return unknownKey(words.at(1));
    const QString expected = words.value(2, key->name);
    if (expected != "none" && !wheel.find(expected))
        return unknownKey(expected);
    const QString decoded = wheel.functionName(decoder.decode(driver->settledPress(*key)));
    return decoded == expected
        ? QString()
        : QString("%1 is decoded as %2, not as %3").arg(key->name, decoded, expected);
}

QString Script::decodeAll(const Decoder &decoder)
{
    QStringList wrong;
    *output << decodeTableHeader() << '\n';
    for (const WheelKey &key : wheel.keys) {
        const int code = decoder.decode(driver->settledPress(key));
        *output << decodeTableRow(key, decoder, wheel.functionName(code)) << '\n';
        if (code != key.code)
            wrong.append(key.name);
    }
    return wrong.isEmpty() ? QString() : "not decoded as their own function: " + wrong.join(", ");
}

QString Script::setWriting(const QStringList &words)
{
    if (driver->setWriting(words.at(1)))
        return QString();
    return QString("there is no way of writing \"%1\"").arg(words.at(1));
}
