#include "program.h"
#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QRegExp>
#include <QSize>
#include <QStringList>
#include <QTextStream>

#include <memory>

namespace {

constexpr char description[] =
    R"(A steering wheel and a key driver for the desk. Without --script a window shows the wheel;
press and hold its keys with the mouse. While swc_flags holds 0 (learning is off), a press is
decoded with direction.json and the function lights up. A command is the head unit's program,
run in its root folder, its log in log.txt there; the window tells how it ends and starts it
again.

A wheel is a JSON object with "noise" (standard deviation), "drift" (a whole press is off by
up to this) and "bounce" (the first value is too high by up to this) in converter steps, and
"keys", an array of { "name", "label", "code", "line": 2 or 3, "adc": [three values from 0
to 4094; 4094 is a channel that the key leaves alone] }.

Commands of a script, one a line, # begins a comment. Each done line is answered with ok; the
exit status is 1 where one fails.
)";

using Option = QCommandLineOption;
const Option options[] = {
    Option({ "h", "help" }, "Shows this."),
    Option("root", "The head unit's root folder, above media/flash/nvm (default: .).", "folder",
           "."),
    Option("wheel", "Another wheel than the built-in one.", "file", ":/wheel.json"),
    Option("exact", "No noise, drift and bounce: the wheel's own values."),
    Option("seed", "Seed of noise, drift and bounce (default: 1).", "number", "1"),
    Option("rate", "Readings a second, 1 to 1000 (default: 20).", "number", "20"),
    Option("write", "Way of writing, as in a script (default: truncate).", "way", "truncate"),
    Option("script", "Do a file's lines, or standard input's for -, without a display.", "file"),
    Option("beside", "Lie beside the head unit's window of that size.", "WxH"),
};

QSize headUnitOf(const QCommandLineParser &parser)
{
    QRegExp size("(\\d{1,4})x(\\d{1,4})");
    return size.exactMatch(parser.value("beside")) ? QSize(size.cap(1).toInt(), size.cap(2).toInt())
                                                   : QSize();
}

// Gives what is wrong, else nothing.
QString readOptions(const QCommandLineParser &parser, Wheel *wheel)
{
    bool seedGood = false;
    parser.value("seed").toUInt(&seedGood);
    const int rate = parser.value("rate").toInt();
    if (parser.isSet("script") && !parser.positionalArguments().isEmpty())
        return "a script goes without a command, see --help";
    if (!seedGood || rate < 1 || rate > 1000)
        return "--seed wants a whole number, --rate one from 1 to 1000";
    if (parser.isSet("beside") && headUnitOf(parser).isEmpty())
        return "--beside wants a size, as 800x480";
    QByteArray text;
    QString fault = readRegularFile(parser.value("wheel"), &text);
    if (fault.isEmpty())
        fault = parseWheel(text, wheel);
    if (parser.isSet("exact"))
        wheel->noise = wheel->drift = wheel->bounce = 0;
    return fault.isEmpty() ? QString() : QString("wheel %1: %2").arg(parser.value("wheel"), fault);
}

int fail(const QString &fault)
{
    QTextStream(stderr) << fault << endl;
    return 1;
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QCommandLineParser parser;
    parser.setApplicationDescription(description + scriptHelp());
    parser.addPositionalArgument("command", "The head unit's program.", "[-- command...]");
    for (const QCommandLineOption &option : options)
        parser.addOption(option);
    const bool parsed = parser.parse(arguments);
    const bool inTerminal = !parsed || parser.isSet("script") || parser.isSet("help");
    const std::unique_ptr<QCoreApplication> application(
        inTerminal ? new QCoreApplication(argc, argv) : new QApplication(argc, argv));
    if (parser.isSet("help"))
        parser.showHelp();

    Wheel wheel;
    QString fault = parsed ? readOptions(parser, &wheel) : parser.errorText();
    if (!fault.isEmpty())
        return fail(fault);
    Driver driver(wheel, parser.value("root"), parser.value("rate").toInt(),
                  parser.value("seed").toUInt());
    QTextStream output(stdout);
    QTextStream errors(stderr);
    fault = execute("write " + parser.value("write"), &driver, &output);
    if (!fault.isEmpty())
        return fail(fault);
    if (inTerminal)
        return runScript(parser.value("script"), &driver, &output, &errors);
    Program program(parser.positionalArguments(), parser.value("root"));
    return showWheel(&driver, parser.positionalArguments().isEmpty() ? nullptr : &program,
                     headUnitOf(parser));
}
