#include "headunit.h"

#include "androidtoast.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDesktopWidget>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QRect>
#include <QScreen>
#include <QTimer>

#include <ctime>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

QSize screenSize;

namespace {

// In milliseconds. Far ahead of real time, so that waits in other threads never time out.
qint64 now = 1000000000000;

const bool withoutDisplay = qputenv("QT_QPA_PLATFORM", "offscreen");
// Qt Test's time limit would use this clock. CTest has a limit of its own.
const bool withoutTimeLimit = qputenv("QTEST_FUNCTION_TIMEOUT", "2000000000");

QStringList logLines;
QtMessageHandler qtHandler;

void recordLog(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QString line = QString::number(context.line) + ']';
    if (type == QtDebugMsg && qstrcmp(context.category, "default") == 0)
        logLines += QString(text)
                        .remove("[swc_print]")
                        .replace(' ' + line, " N]")
                        .replace("line:" + line, "line:N]");
    else if (!text.startsWith("This plugin does not support")) // moving a window, for example
        qtHandler(type, context, text);
}

} // namespace

// Takes the place of the C library's function.
extern "C" int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    if (clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    time->tv_sec = static_cast<time_t>(now / 1000);
    time->tv_nsec = static_cast<long>(now % 1000 * 1000000);
    return 0;
}

// These two replace Qt's functions, because its offscreen platform has only one screen size.
const QRect QDesktopWidget::availableGeometry(int) const
{
    return { QPoint(), screenSize };
}

QSize QScreen::size() const
{
    return screenSize;
}

void handleEvents()
{
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void pass(int milliseconds)
{
    constexpr int maxStep = 100; // so that animations see the time pass
    for (; milliseconds > 0; milliseconds -= maxStep) {
        now += qMin(maxStep, milliseconds);
        handleEvents();
    }
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList takeLog()
{
    return std::exchange(logLines, QStringList());
}

QList<QLabel *> shownNotices()
{
    QList<QLabel *> notices;
    for (const QWidget *widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<const AndroidToast *>(widget))
            notices += widget->findChild<QLabel *>();
    }
    return notices;
}

// Qt shifts timers by up to 5 percent, but not those that start at a full second.
HeadUnit::HeadUnit(const QByteArray &configuration)
    : folder((QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath()) + "/velmora-XXXXXX"),
      previousHandler(qInstallMessageHandler(recordLog))
{
    qtHandler = previousHandler;
    screenSize = { 800, 480 };
    now += 1000 - now % 1000;
    QDir::setCurrent(folder.path());
    QDir().mkpath("media/flash/nvm/Corvane");
    write(readingPath, "");
    write(flagPath, "");
    if (!configuration.isNull())
        write(configurationPath, configuration);
    takeLog();
}

HeadUnit::~HeadUnit()
{
    if (QCoreApplication::instance())
        pass(3000); // the last notice goes
    qInstallMessageHandler(previousHandler);
}

LearningWindow::LearningWindow(const QByteArray &configuration)
    : HeadUnit(configuration), KeyMainWindow(nullptr)
{
}

void LearningWindow::tap(int code)
{
    button(code)->click();
    handleEvents();
}

int LearningWindow::save()
{
    QTimer inTheEventLoop;
    connect(&inTheEventLoop, SIGNAL(timeout()), btnSave, SLOT(click()));
    inTheEventLoop.start(0);
    return QCoreApplication::exec();
}

QString LearningWindow::clear()
{
    QString text;
    QTimer inTheQuestion;
    connect(&inTheQuestion, &QTimer::timeout, [&text] {
        text = QApplication::activeModalWidget()->findChild<QLabel *>()->text();
        QApplication::activeModalWidget()->findChild<QPushButton *>()->click();
    });
    inTheQuestion.start(0);
    btnClear->click();
    return text;
}

void LearningWindow::measure(int keyLine, int adc1, int adc2, int adc3)
{
    writeText(QString("99:%1,%2,%3,%4").arg(keyLine).arg(adc1).arg(adc2).arg(adc3).toLatin1());
}

void LearningWindow::writeText(const QByteArray &text)
{
    write(readingPath, text);
    handleEvents();
}

QString LearningWindow::colourOf(int code) const
{
    const QString rest = ";border-radius:6px;border:none;outline:none";
    const QHash<QString, QString> names = {
        { "QPushButton{background-color:rgb(80,80,80)" + rest + "}", Gray },
        { "background-color:blue" + rest, Blue },
        { "background-color:green" + rest, Green },
        { "QPushButton{background-color:green" + rest + "}", GreenAtStart },
    };
    const QString style = button(code)->styleSheet();
    return names.value(style, style);
}

QString LearningWindow::notice() const
{
    QStringList notices;
    for (const QLabel *label : shownNotices()) {
        const QString colour = label->styleSheet().section("; color:", 1).section(';', 0, 0);
        notices += colour + ' ' + label->text();
    }
    return notices.join(" above ");
}
