#include "headunit.h"

#include "androidtoast.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QLabel>
#include <QTimerEvent>

#include <ctime>
#include <memory>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int kilobytesPerPage = 4;
constexpr int longestSlice = 100; // of time that passes at once, in milliseconds

// Far beyond the real time, so that no wait of another thread until some time of it ever ends.
qint64 milliseconds = 1000000000000;

const bool withoutScreen = qputenv("QT_QPA_PLATFORM", "offscreen");

QString logText;
QtMessageHandler handlerBefore;

void recordLog(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith("This plugin does not support"))
        return; // a screen's place, which nobody sees
    if (type != QtDebugMsg || qstrcmp(context.category, "default") != 0)
        return handlerBefore(type, context, text);
    const QString number = QString::number(context.line) + ']';
    logText +=
        QString(text).replace(' ' + number, " LINE]").replace("[line:" + number, "[line:LINE]")
        + '|';
}

// Does something once, in the event loop.
class Later : public QObject
{
public:
    explicit Later(std::function<void()> what) : action(std::move(what)) { startTimer(0); }

private:
    void timerEvent(QTimerEvent *event) override
    {
        killTimer(event->timerId());
        action();
    }
    std::function<void()> action;
};

} // namespace

// Takes the place of the C library's: Qt's timers and animations read this clock.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): reserved there
extern "C" int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    if (clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    time->tv_sec = static_cast<time_t>(milliseconds / 1000);
    time->tv_nsec = static_cast<long>(milliseconds % 1000 * 1000000);
    return 0;
}

void handleEvents()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void pass(int duration)
{
    for (const qint64 end = milliseconds + duration; milliseconds < end;) {
        milliseconds += qMin<qint64>(longestSlice, end - milliseconds);
        handleEvents();
    }
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write a file of the test");
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addRows(const QString &table)
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    for (QString row : table.split('\n', QString::SkipEmptyParts)) {
        row.replace("\\r", "\r").replace("\\n", "\n").replace("\\t", "\t");
        const QString input = row.section(" =>", 0, 0).section(": ", 1);
        QTest::newRow(qPrintable(row.section(": ", 0, 0))) << input << row.section(" =>", 1).mid(1);
    }
}

QString takeLog()
{
    return std::exchange(logText, QString(""));
}

QStringList slotsOf(const QMetaObject &type)
{
    QStringList names;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        names += (type.method(i).access() == QMetaMethod::Public ? "public " : "private ")
            + QString::fromLatin1(type.method(i).methodSignature());
    return names;
}

QList<QWidget *> notices()
{
    QList<QWidget *> found;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<AndroidToast *>(widget))
            found += widget;
    }
    return found;
}

void tap(QWidget *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

void answer(const QString &text)
{
    QWidget *question = QApplication::activeModalWidget();
    if (!question)
        qFatal("no question is open");
    for (QPushButton *button : question->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return tap(button);
    }
    QTest::keyClick(question, Qt::Key_Escape);
}

int exitCodeOf(const std::function<void()> &action)
{
    QGuiApplication::setQuitOnLastWindowClosed(false); // the window itself is not shown
    std::unique_ptr<Later> giveUp;
    const Later start([&] {
        action();
        giveUp = std::make_unique<Later>([] { QCoreApplication::exit(stillRunning); });
    });
    return QCoreApplication::exec();
}

int exitCodeOfClear(QPushButton *clear, const std::function<void()> &reply)
{
    return exitCodeOf([&] {
        const Later later(reply);
        tap(clear);
    });
}

int residentKilobytes()
{
#ifdef __SANITIZE_ADDRESS__
    return 0; // what was freed is kept for a while
#endif
    return read("/proc/self/statm").split(' ').value(1).toInt() * kilobytesPerPage;
}

// Time-outs that begin with a second are exact: Qt may move others by 5 percent.
HeadUnit::HeadUnit(const QByteArray &configuration)
    : folderBefore(QDir::currentPath()),
      folder((QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath()) + "/velmora-XXXXXX")
{
    milliseconds += 1000 - milliseconds % 1000;
    QDir::setCurrent(folder.path());
    QDir().mkpath("media/flash/nvm/Corvane");
    write(readingPath, "");
    write(flagPath, "");
    if (!configuration.isNull())
        write(configurationPath, configuration);
    takeLog();
    handlerBefore = qInstallMessageHandler(recordLog);
}

HeadUnit::~HeadUnit()
{
    if (QCoreApplication::instance())
        pass(3000); // the last notice goes
    qInstallMessageHandler(handlerBefore);
    QDir::setCurrent(folderBefore);
}

void KeyMainWindowProbe::receive(const QByteArray &text) const
{
    if (!writeReading(readingPath, text, way))
        qFatal("can't write the reading");
    handleEvents();
}

void KeyMainWindowProbe::play(const QString &steps)
{
    for (const QString &step : steps.split(' ', QString::SkipEmptyParts)) {
        if (step == "clear")
            exitCodeOfClear(clear, [] { answer("Yes"); });
        else if (step == "save")
            exitCodeOf([this] { tap(save); });
        else if (step == "up")
            receive(readingText("2,4095,4095,4095"));
        else if (step.contains('='))
            learned.insert(step.section('=', 0, 0).toInt(), step.section('=', 1));
        else if (step.contains(','))
            receive(readingText(step.toLatin1()));
        else if (step.endsWith("ms"))
            pass(step.section("ms", 0, 0).toInt());
        else
            tap(button(step.toInt()));
    }
}

QString KeyMainWindowProbe::state() const
{
    const QString style = "background-color:%1;border-radius:6px;border:none;outline:none";
    const QHash<QString, QString> colours{ { style.arg("green"), "green" },
                                           { style.arg("blue"), "blue" } };
    const QString gray = "QPushButton{" + style.arg("rgb(80,80,80)") + '}';
    QStringList parts;
    for (QPushButton *key : window.findChildren<QPushButton *>()) {
        const QString sheet = key->styleSheet();
        if (sheet != gray)
            parts += QString::number(keys.value(key)) + ' ' + colours.value(sheet, sheet);
    }
    for (auto key = learned.cbegin(); key != learned.cend(); ++key)
        parts += QString("%1=%2").arg(key.key()).arg(key.value());
    for (int code : pending)
        parts += QString("waits %1").arg(code);
    for (auto sample = samples.cbegin(); sample != samples.cend(); ++sample)
        parts += QString("sample %1").arg(sample.key());
    if (window.sampleKeyIdx != 0)
        parts += QString("next %1").arg(window.sampleKeyIdx);
    for (const QWidget *notice : notices()) {
        const auto *label = notice->findChild<QLabel *>();
        parts +=
            label->styleSheet().section("; color:", 1).section(';', 0, 0) + ' ' + label->text();
    }
    return parts.join("; ");
}
