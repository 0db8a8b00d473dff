#include "windowprobe.h"

#include "platform.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <ctime>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int largestSlice = 100; // of time that passes at once, in milliseconds
constexpr int kilobytesPerPage = 4;

qint64 milliseconds = 1000000;

void writePieces(const char *path, int flags, const QByteArray &first, const QByteArray &second)
{
    const int file = open(path, O_WRONLY | O_CREAT | flags, 0644);
    for (const QByteArray &piece : { first, second }) {
        if (!piece.isEmpty() && write(file, piece.constData(), piece.size()) != piece.size())
            qFatal("can't write %s", path);
    }
    close(file);
}

// The platform without a screen warns of what it can't do.
void showWarnings(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && !text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

} // namespace

// Takes the place of the C library's: Qt's timers and animations read this clock.
extern "C" int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    if (clock != CLOCK_MONOTONIC)
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    time->tv_sec = milliseconds / 1000;
    time->tv_nsec = milliseconds % 1000 * 1000000;
    return 0;
}

qint64 now()
{
    return milliseconds;
}

void handleEvents()
{
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    while (dispatcher->processEvents(QEventLoop::AllEvents)) { }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void pass(int duration)
{
    for (const qint64 end = milliseconds + duration; milliseconds < end;) {
        milliseconds += qMin<qint64>(largestSlice, end - milliseconds);
        handleEvents();
    }
}

void doWithoutScreen()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(showWarnings);
}

HeadUnit::HeadUnit()
    : folder((QDir("/dev/shm").exists() ? "/dev/shm" : QDir::tempPath()) + "/velmora-XXXXXX")
{
    if (!std::freopen("/dev/null", "w", stdout)) // each window writes a line
        qFatal("can't open /dev/null");
    QDir::setCurrent(folder.path());
    QDir().mkpath(QFileInfo(Platform::reading).path());
    for (const char *path : { Platform::reading, Platform::flag }) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("can't make %s", path);
    }
}

HeadUnit::~HeadUnit()
{
    QDir::setCurrent("/");
}

void writeReading(const QByteArray &payload, Way way)
{
    const QByteArray text = QByteArray::number(payload.size()) + ':' + payload;
    const QByteArray newFile = QByteArray(Platform::reading) + ".new";
    const int thirdField = text.lastIndexOf(',');
    switch (way) {
    case Way::Truncated:
        writePieces(Platform::reading, O_TRUNC, text, {});
        break;
    case Way::InPieces:
        writePieces(Platform::reading, O_TRUNC, text.left(thirdField), text.mid(thirdField));
        break;
    case Way::Overwritten:
        writePieces(Platform::reading, 0, text, {});
        break;
    case Way::Renamed:
        writePieces(newFile.constData(), O_TRUNC, text, {});
        rename(newFile.constData(), Platform::reading);
        break;
    }
}

int residentKilobytes()
{
#ifdef __SANITIZE_ADDRESS__
    return 0; // what was freed is kept for a while
#endif
    QFile file("/proc/self/statm");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toInt() * kilobytesPerPage;
}

int openFiles()
{
    return QDir("/proc/self/fd")
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
}
