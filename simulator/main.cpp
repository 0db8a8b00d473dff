#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <memory>

namespace {

constexpr char description[] =
    R"(A steering wheel and a key driver for the desk, in a window to press the keys with the mouse
or told by a script. A command is the head unit's program, which the window starts in the root
folder and starts again; its log is in log.txt there.

Commands of a script, one a line, # begins a comment. Each done line is answered with ok; the
exit status is 1 where one fails.
)";

using Option = QCommandLineOption;
const Option options[] = {
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

// Empty where there is none.
QSize headUnitOf(const QCommandLineParser &parser)
{
    const QStringList size = parser.value("beside").split('x');
    return { size.value(0).toInt(), size.value(1).toInt() };
}

// Gives what is wrong, else nothing.
QString readOptions(const QCommandLineParser &parser, Wheel *wheel)
{
    bool seedGood = false;
    parser.value("seed").toUInt(&seedGood);
    const int rate = parser.value("rate").toInt();
    if (!QDir(parser.value("root")).exists("media/flash/nvm"))
        return QString("there is no media/flash/nvm in %1, see --root").arg(parser.value("root"));
    if (parser.isSet("script") && !parser.positionalArguments().isEmpty())
        return "a script goes without a command, see --help";
    if (!seedGood || rate < 1 || rate > 1000)
        return "--seed wants a whole number, --rate one from 1 to 1000";
    if (!wayNames().contains(parser.value("write")))
        return "--write wants one of " + wayNames().join(", ");
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

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QCoreApplication> application = std::make_unique<QCoreApplication>(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(description + scriptHelp());
    parser.addHelpOption();
    parser.addPositionalArgument("command", "The head unit's program.", "[-- command...]");
    for (const QCommandLineOption &option : options)
        parser.addOption(option);
    parser.process(*application);

    QTextStream output(stdout);
    QTextStream errors(stderr);
    Wheel wheel;
    const QString fault = readOptions(parser, &wheel);
    if (!fault.isEmpty()) {
        errors << fault << endl;
        return 1;
    }
    Driver driver(wheel, parser.value("root"), parser.value("rate").toInt(),
                  parser.value("seed").toUInt());
    driver.way = static_cast<Way>(wayNames().indexOf(parser.value("write")));
    if (parser.isSet("script"))
        return runScript(parser.value("script"), &driver, &output, &errors);

    application.reset(); // a script needs no display, and there can be only one
    application = std::make_unique<QApplication>(argc, argv);
    return showWheel(&driver, headUnitOf(parser), parser.positionalArguments());
}
