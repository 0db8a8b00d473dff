#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QTextStream>

namespace {

constexpr char description[] =
    "A steering wheel and a key driver for the desk. Without --script a window shows the wheel;\n"
    "press and hold its keys with the mouse. While a key is held, readings go to the file\n"
    "media/flash/nvm/swc_keys below the root, on letting go the release. While swc_flags holds 0\n"
    "(learning is off), a press is decoded with direction.json and the function lights up.\n"
    "\n"
    "Commands of a script, one a line, # begins a comment:\n";

constexpr char wheelDescription[] =
    "\n"
    "A wheel is a JSON object with \"noise\" (standard deviation), \"drift\" (a whole press is "
    "off\n"
    "by up to this) and \"bounce\" (the first value is too high by up to this) in converter\n"
    "steps, and \"keys\", an array of { \"name\", \"label\", \"code\", \"line\": 2 or 3,\n"
    "\"adc\": [three values from 0 to 4094; 4094 is a channel that the key leaves alone] }.\n"
    "The exit status is 1 where a line of a script or its expectation fails.";

const QCommandLineOption rootOption("root", "The head unit's root folder (default: .).", "folder",
                                    ".");
const QCommandLineOption wheelOption("wheel", "Another wheel than the built-in one.", "file");
const QCommandLineOption seedOption("seed", "Seed of noise, drift and bounce (default: 1).",
                                    "number", "1");
const QCommandLineOption rateOption("rate", "Readings a second, 1 to 1000 (default: 20).", "number",
                                    "20");
const QCommandLineOption writeOption("write",
                                     "truncate (the default), overwrite (without truncation) or "
                                     "rename (a new file over the old one).",
                                     "way", "truncate");
const QCommandLineOption scriptOption("script",
                                      "Do the commands of the file, or of standard input for -, "
                                      "without a display. Each done line is answered with ok.",
                                      "file");

int complain(const QString &fault)
{
    QTextStream(stderr) << "swc-simulator: " << fault << endl;
    return 1;
}

QString readWheel(const QString &name, Wheel *wheel)
{
    QFile file(name);
    QString fault;
    if (name.isEmpty())
        parseWheel(builtInWheel(), wheel, &fault);
    else if (!file.open(QIODevice::ReadOnly))
        fault = file.errorString();
    else
        parseWheel(file.readAll(), wheel, &fault);
    return fault.isEmpty() ? QString() : QString("wheel %1: %2").arg(name, fault);
}

QString readOptions(const QCommandLineParser &parser, DriverOptions *options)
{
    bool seedGood = false;
    bool rateGood = false;
    options->root = parser.value(rootOption);
    options->writing = parser.value(writeOption);
    options->seed = parser.value(seedOption).toUInt(&seedGood);
    options->rate = parser.value(rateOption).toInt(&rateGood);
    if (!seedGood)
        return "--seed wants a number from 0 to 4294967295";
    if (!rateGood || options->rate < 1 || options->rate > 1000)
        return "--rate wants a number from 1 to 1000";
    if (!Driver::waysOfWriting().contains(options->writing))
        return "--write wants " + Driver::waysOfWriting().join(", ");
    return QString();
}

int runScript(const QString &name, Driver *driver, const Wheel &wheel)
{
    QFile file(name);
    const bool opened =
        name == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened)
        return complain(QString("script %1: %2").arg(name, file.errorString()));
    QTextStream output(stdout);
    const QString fault = Script(driver, wheel, &output).run(file.handle());
    return fault.isEmpty() ? 0 : complain(QString("script %1: %2").arg(name, fault));
}

int runWindow(Driver *driver, const Wheel &wheel)
{
    WheelWindow window(driver, wheel);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));

    QCommandLineParser parser;
    parser.setApplicationDescription(description + Script::help() + wheelDescription);
    const QCommandLineOption helpOption = parser.addHelpOption();
    for (const QCommandLineOption &option :
         { rootOption, wheelOption, seedOption, rateOption, writeOption, scriptOption })
        parser.addOption(option);

    // Only the window needs a display. Qt's own options are still among the arguments here.
    parser.parse(arguments);
    const bool inTerminal = parser.isSet(scriptOption) || parser.isSet(helpOption);
    const std::unique_ptr<QCoreApplication> application(
        inTerminal ? new QCoreApplication(argc, argv) : new QApplication(argc, argv));
    parser.process(*application);
    if (!parser.positionalArguments().isEmpty())
        return complain("there are only options, see --help");

    Wheel wheel;
    DriverOptions options;
    QString fault = readWheel(parser.value(wheelOption), &wheel);
    if (fault.isEmpty())
        fault = readOptions(parser, &options);
    if (!fault.isEmpty())
        return complain(fault);

    Driver driver(wheel, options);
    fault = driver.start();
    if (!fault.isEmpty())
        return complain(fault);
    return parser.isSet(scriptOption) ? runScript(parser.value(scriptOption), &driver, wheel)
                                      : runWindow(&driver, wheel);
}
