#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

constexpr char description[] =
    R"(A steering wheel and a key driver for the desk. Without --script a window shows the wheel;
press and hold its keys with the mouse. While swc_flags holds 0 (learning is off), a press is
decoded with direction.json and the function lights up.

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
    Option("seed", "Seed of noise, drift and bounce (default: 1).", "number", "1"),
    Option("rate", "Readings a second, 1 to 1000 (default: 20).", "number", "20"),
    Option("write", "Way of writing, as in a script (default: truncate).", "way", "truncate"),
    Option("script", "Do a file's lines, or standard input's for -, without a display.", "file"),
};

// Gives what is wrong, else nothing.
QString readOptions(const QCommandLineParser &parser, Wheel *wheel)
{
    bool seedGood = false;
    parser.value("seed").toUInt(&seedGood);
    const int rate = parser.value("rate").toInt();
    if (!parser.positionalArguments().isEmpty())
        return "there are only options, see --help";
    if (!seedGood || rate < 1 || rate > 1000)
        return "--seed wants a whole number, --rate one from 1 to 1000";
    QFile file(parser.value("wheel"));
    const QString fault =
        file.open(QIODevice::ReadOnly) ? parseWheel(file.readAll(), wheel) : file.errorString();
    return fault.isEmpty() ? QString() : QString("wheel %1: %2").arg(file.fileName(), fault);
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
    return inTerminal ? runScript(parser.value("script"), &driver, &output, &errors)
                      : showWheel(&driver);
}
