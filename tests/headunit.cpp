#include "headunit.h"

#include "androidtoast.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QTimerEvent>

#include <ctime>
#include <memory>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int longestSlice = 100; // of time that passes at once, in milliseconds

// Far beyond the real time, so that no wait of another thread until some time of it ever ends.
qint64 milliseconds = 1000000000000;

const bool withoutScreen = qputenv("QT_QPA_PLATFORM", "offscreen");
const bool withoutTimeout = qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000"); // this clock is fast

QString logText;
QtMessageHandler handlerBefore;

void recordLog(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QRegularExpression line(QString("( |\\[line:)%1\\]").arg(context.line));
    if (type == QtDebugMsg && qstrcmp(context.category, "default") == 0)
        logText += QString(text).replace(line, "\\1LINE]") + '|';
    else if (!text.startsWith("This plugin does not support")) // a place on a screen
        handlerBefore(type, context, text);
}

// Does something once, in the event loop.
struct Later : QObject
{
    explicit Later(std::function<void()> what) : action(std::move(what)) { startTimer(0); }
    void timerEvent(QTimerEvent *event) override
    {
        killTimer(event->timerId());
        action();
    }
    const std::function<void()> action;
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
    for (; duration > 0; duration -= longestSlice) {
        milliseconds += qMin(longestSlice, duration);
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
    const QString rows = QString(read(QFINDTESTDATA("tables/" + table + ".txt"))).section('\n', 1);
    for (QString row : rows.split('\n', QString::SkipEmptyParts)) {
        row.replace("\\r", "\r").replace("\\n", "\n").replace("\\t", "\t").replace("\\0", QChar(0));
        const QString input = row.section(" =>", 0, 0).section(": ", 1);
        QTest::newRow(qPrintable(row.section(": ", 0, 0))) << input << row.section(" =>", 1).mid(1);
    }
}

QString takeLog()
{
    return std::exchange(logText, QString(""));
}

QList<QLabel *> notices()
{
    QList<QLabel *> found;
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<const AndroidToast *>(widget))
            found += widget->findChild<QLabel *>();
    }
    return found;
}

void answer(const QString &text)
{
    QWidget *question = QApplication::activeModalWidget();
    for (QPushButton *button : question->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button->click();
    }
    QTest::keyClick(question, Qt::Key_Escape);
}

int exitCodeOf(QPushButton *button, const std::function<void()> &reply)
{
    QGuiApplication::setQuitOnLastWindowClosed(false); // the window itself is not shown
    std::unique_ptr<Later> giveUp;
    const Later start([&] {
        const Later later(reply);
        button->click();
        giveUp = std::make_unique<Later>([] { QCoreApplication::exit(stillRunning); });
    });
    return QCoreApplication::exec();
}

// Time-outs that begin with a second are exact: Qt may move others by 5 percent.
HeadUnit::HeadUnit(const QByteArray &configuration)
    : folder((QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath()) + "/velmora-XXXXXX")
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
}

void KeyMainWindowProbe::play(const QString &steps)
{
    for (const QString &step : steps.split(' ', QString::SkipEmptyParts)) {
        const QByteArray payload = step == "up" ? "2,4095,4095,4095" : step.toLatin1();
        if (step == "clear" || step == "save")
            exitCodeOf(step == "save" ? save : clear, [] { answer("Yes"); });
        else if (step.contains('='))
            learned.insert(step.section('=', 0, 0).toInt(), step.section('=', 1));
        else if (step.startsWith("text:"))
            write(readingPath, step.mid(5).toLatin1());
        else if (payload.contains(','))
            writeReading(readingPath, readingText(payload), way);
        else if (step == "gone")
            QFile::remove(readingPath);
        else if (step.startsWith("recorrect"))
            QMetaObject::invokeMethod(&window, payload);
        else if (step.startsWith("touch"))
            QTest::mousePress(keys.key(step.mid(5).toInt()), Qt::LeftButton);
        else if (step.endsWith("ms"))
            pass(step.section("ms", 0, 0).toInt());
        else
            keys.key(step.toInt())->click();
        handleEvents();
    }
}

QString KeyMainWindowProbe::state() const
{
    QStringList parts;
    for (QPushButton *key : window.findChildren<QPushButton *>()) {
        QString colour = key->styleSheet().remove(";border-radius:6px;border:none;outline:none");
        colour.remove("background-color:");
        if (colour != "QPushButton{rgb(80,80,80)}")
            parts += QString::number(keys.value(key)) + ' ' + colour;
    }
    for (auto key = learned.cbegin(); key != learned.cend(); ++key)
        parts += QString("%1=%2").arg(key.key()).arg(key.value());
    for (int code : pending)
        parts += QString("waits %1").arg(code);
    for (auto sample = samples.cbegin(); sample != samples.cend(); ++sample)
        parts += QString("sample %1").arg(sample.key());
    for (const QLabel *notice : notices())
        parts +=
            notice->styleSheet().section("color:", 2).section(';', 0, 0) + ' ' + notice->text();
    return parts.join("; ");
}
