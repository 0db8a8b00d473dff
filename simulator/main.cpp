#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
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

using Option = QCommandLineOption;
const Option options[] = {
    Option("root", "The folder above media/flash/nvm (default: .).", "folder", "."),
    Option("wheel", "Another wheel than the built-in one.", "file", ":/wheel.json"),
    Option("exact", "No noise, drift and bounce: the wheel's own values."),
    Option("seed", "Seed of noise, drift and bounce (default: 1).", "number", "1"),
    Option("rate", "Readings a second, 1 to 1000 (default: 20).", "number", "20"),
    Option("write", "truncate (default), overwrite, rename or pieces.", "way", "truncate"),
    Option("script", "Do a file's lines, or standard input's for -, without a display.", "file"),
    Option("beside", "Lie beside the head unit's window of that size.", "WxH"),
};

// Gives what is wrong, else nothing.
QString readOptions(const QCommandLineParser &parser, Driver *driver)
{
    const int rate = parser.value("rate").toInt();
    const int way = wayNames().indexOf(parser.value("write"));
    driver->root = parser.value("root");
    if (!QDir(driver->root).exists("media/flash/nvm"))
        return QString("there is no media/flash/nvm in %1, see --root").arg(driver->root);
    if (rate < 1 || rate > 1000 || way < 0)
        return "--rate or --write is not as --help says";
    driver->period = 1000 / rate;
    driver->way = static_cast<Way>(way);
    driver->chance.seed(parser.value("seed").toUInt());
    const QString fault = parseWheel(contentOfFile(parser.value("wheel")), &driver->wheel);
    if (parser.isSet("exact"))
        driver->wheel.noise = driver->wheel.drift = driver->wheel.bounce = 0;
    return fault.isEmpty() ? fault : parser.value("wheel") + ": " + fault;
}

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QCoreApplication> application = std::make_unique<QCoreApplication>(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(contentOfFile(":/help.txt"));
    parser.addHelpOption();
    parser.addPositionalArgument("command", "The head unit's program.", "[-- command...]");
    for (const QCommandLineOption &option : options)
        parser.addOption(option);
    parser.process(*application);

    Driver driver;
    QTextStream output(stdout);
    QString fault = readOptions(parser, &driver);
    if (fault.isEmpty() && parser.isSet("script"))
        fault = runScript(parser.value("script"), &driver, &output);
    if (!fault.isEmpty())
        QTextStream(stderr) << fault << endl;
    if (!fault.isEmpty() || parser.isSet("script"))
        return fault.isEmpty() ? 0 : 1;

    application.reset(); // a script needs no display, and there can be only one
    application = std::make_unique<QApplication>(argc, argv);
    const QStringList size = parser.value("beside").split('x');
    return showWheel(&driver, { size.value(0).toInt(), size.value(1).toInt() },
                     parser.positionalArguments());
}
