#include "buttonstyles.h"
#include "frames.h"
#include "keymainwindow.h"
#include "platform.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileSystemWatcher>
#include <QPushButton>

#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

// exchange window|bare SAMPLES [asleep]
// Writes so many samples and a release, each when the one before was taken: by the window, or by a
// bare watcher of the same file. Asleep: another thread writes, once the event loop waits, and the
// microseconds are printed until the sample was taken, or the green button was painted.

namespace {

constexpr char release[] = "16:2,4095,4095,4095";
constexpr int secondsAtMost = 120;
constexpr int napMicroseconds = 200; // the event loop waits again by then

QElapsedTimer timer;
std::atomic<qint64> writtenAt; // in nanoseconds
qint64 takenAt; // 0: not yet
bool writesAsleep = false;

// Takes the readings that a watcher tells of, by itself or after the window.
class Reader : public QObject
{
    Q_OBJECT

public:
    QPushButton *button = nullptr;
    bool awaitsGreen = false;

public slots:
    // The least that one can do: read a sample, and paint one button on a release.
    void read(const QString &path) const
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        if (file.readAll() == release)
            button->setStyleSheet(ButtonStyles::learned);
        take();
    }

    void take() const
    {
        if (!awaitsGreen)
            takenAt = timer.nsecsElapsed();
    }
};

Reader reader;

void awaitGreen(QWindow *window)
{
    if (takenAt == 0 && reader.awaitsGreen && window == reader.button->window()->windowHandle()
        && reader.button->styleSheet() == ButtonStyles::learned)
        takenAt = timer.nsecsElapsed();
}

// In place and in one call, so that a reading is one change of the file.
void write(const QByteArray &text)
{
    static const int file = open(Platform::reading, O_WRONLY | O_CLOEXEC);
    writtenAt = timer.nsecsElapsed();
    if (pwrite(file, text.constData(), text.size(), 0) != text.size())
        qFatal("%s can't be written", Platform::reading);
}

void writeAsleep(const QByteArray &text)
{
    usleep(napMicroseconds);
    write(text);
}

void exchange(const QByteArray &text, const char *what)
{
    takenAt = 0;
    std::thread writer(writesAsleep ? std::thread(writeAsleep, text) : std::thread());
    if (!writesAsleep)
        write(text);
    while (takenAt == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (!writesAsleep)
        return;
    writer.join();
    std::printf("%s: %lld\n", what, (takenAt - writtenAt) / 1000);
}

} // namespace

// All differ, are of one length, and lie further apart than colliding ones.
extern "C" __attribute__((noinline)) void takeSamples(int count)
{
    for (int i = 0; i < count; ++i) {
        const QString payload =
            QString("2,%1,%2,4094").arg(1000 + i * 100 % 3000).arg(1000 + i / 30);
        exchange("16:" + payload.toLatin1(), "sample");
    }
}

extern "C" __attribute__((noinline)) void takeRelease()
{
    reader.awaitsGreen = true;
    exchange(release, "release");
}

int main(int argc, char **argv)
{
    alarm(secondsAtMost);
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    frameShown = awaitGreen;
    timer.start();

    std::unique_ptr<KeyMainWindow> window;
    QPushButton bareButton;
    QFileSystemWatcher bareWatcher;
    if (arguments.value(1) == "window") {
        window = std::make_unique<KeyMainWindow>(nullptr);
        window->show();
        reader.button = window->findChild<QPushButton *>(); // the first key's
        reader.button->click();
        QObject::connect(window->findChild<QFileSystemWatcher *>(), SIGNAL(fileChanged(QString)),
                         &reader, SLOT(take()));
    } else {
        reader.button = &bareButton;
        bareButton.show();
        bareWatcher.addPath(Platform::reading);
        QObject::connect(&bareWatcher, SIGNAL(fileChanged(QString)), &reader, SLOT(read(QString)));
    }
    QCoreApplication::processEvents();
    writesAsleep = arguments.value(3) == "asleep";
    takeSamples(arguments.value(2).toInt());
    takeRelease();
}

#include "exchange.moc"
