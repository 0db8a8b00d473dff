#include "script.h"
#include "wheelwindow.h"

#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QString>
#include <QTextStream>

#include <memory>

#include <unistd.h>

namespace {

constexpr char description[] = R"(
Stands in for the steering wheel and the key driver of a head unit. A command is its program, which
the window starts in the root folder, with its output in log.txt there. A script needs no display.

Lines of a script, each answered with ok; one that fails ends it with exit status 1:
  press KEY [TIME]   press the key, release it after 400ms or TIME
  decode KEY [TIME]  press it for one measurement or TIME, expect it to be decoded as itself
  flag TEXT [TIME]   wait 5000ms or TIME for TEXT in the flag file
  # COMMENT
KEY may be all.)";

using Option = QCommandLineOption;
const Option rootOption("root", "Folder above media/flash/nvm (default: .).", "folder", ".");
const Option wheelOption("wheel", "JSON file with a different wheel.", "file", ":/wheel.json");
const Option exactOption("exact", "Measure without noise.");
const Option scriptOption("script", "Execute a file's lines, or standard input's for -.", "file");

int fail(const QString &error)
{
    QTextStream(stderr) << "velmora-wheel: " << error << endl;
    return 1;
}

int executeScript(const QString &name, Driver *driver)
{
    QFile file(name);
    const QIODevice::OpenMode mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    if (name == "-" ? !file.open(STDIN_FILENO, mode) : !file.open(mode))
        return fail(name + ": " + file.errorString());
    QTextStream output(stdout);
    const QString error = runScript(&file, driver, &output);
    return error.isEmpty() ? 0 : fail("script " + name + ", " + error);
}

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QCoreApplication> application = std::make_unique<QCoreApplication>(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    parser.addPositionalArgument("command", "The head unit's program.", "[-- command...]");
    for (const Option &option : { rootOption, wheelOption, exactOption, scriptOption })
        parser.addOption(option);
    parser.process(*application);

    const QString root = parser.value(rootOption);
    if (!QDir(root).exists("media/flash/nvm"))
        return fail("there is no folder media/flash/nvm in " + root);
    Wheel wheel;
    const QString error = parseWheel(readFile(parser.value(wheelOption)), &wheel);
    if (!error.isEmpty())
        return fail(parser.value(wheelOption) + ": " + error);
    if (parser.isSet(exactOption))
        wheel.noise = 0;
    Driver driver(wheel, root);
    if (parser.isSet(scriptOption))
        return executeScript(parser.value(scriptOption), &driver);

    application.reset(); // only the window needs a display
    application = std::make_unique<QApplication>(argc, argv);
    WheelWindow window(&driver, parser.positionalArguments());
    window.show();
    return QApplication::exec();
}
