#include "buttonstyles.h"
#include "keymainwindow.h"
#include "platform.h"

#include <QApplication>
#include <QFile>
#include <QFileSystemWatcher>
#include <QPushButton>

#include <memory>

#include <fcntl.h>
#include <unistd.h>

// exchange window|bare SAMPLES
// Writes so many samples and a release, each when the one before was taken: by the window, or by a
// bare watcher of the same file. Fails where the button is not green in the end.

namespace {

constexpr char release[] = "16:2,4095,4095,4095";

class Reader : public QObject
{
    Q_OBJECT

public:
    QPushButton *button = nullptr;
    bool hasTaken = false;

public slots:
    // The least that one can do: read a sample, and paint one button on a release.
    void read(const QString &path) const
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        if (file.readAll() == release)
            button->setStyleSheet(ButtonStyles::learned);
    }
    void take() { hasTaken = true; }
};

Reader reader;

// In place and in one call, so that a reading is one change of the file.
void exchange(const QByteArray &text)
{
    static const int file = open(Platform::reading, O_WRONLY | O_CLOEXEC);
    reader.hasTaken = false;
    if (pwrite(file, text.constData(), text.size(), 0) != text.size())
        qFatal("%s can't be written", Platform::reading);
    while (!reader.hasTaken)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

// All differ, are of one length, and lie further apart than colliding ones.
extern "C" __attribute__((noinline)) void takeSamples(int count)
{
    const QString sample = "16:2,%1,%2,4094";
    for (int i = 0; i < count; ++i)
        exchange(sample.arg(1000 + i * 100 % 3000).arg(1000 + i / 30).toLatin1());
}

extern "C" __attribute__((noinline)) void takeRelease()
{
    exchange(release);
    QCoreApplication::processEvents(); // paints it
}

int main(int argc, char **argv)
{
    alarm(120); // seconds at most
    QApplication application(argc, argv);
    QPushButton bareButton;
    QFileSystemWatcher bareWatcher;
    QFileSystemWatcher *watcher = &bareWatcher;
    std::unique_ptr<KeyMainWindow> window;
    if (QCoreApplication::arguments().value(1) == "window") {
        window = std::make_unique<KeyMainWindow>(nullptr);
        window->show();
        watcher = window->findChild<QFileSystemWatcher *>();
        reader.button = window->findChild<QPushButton *>(); // the first key's
        reader.button->click();
    } else {
        reader.button = &bareButton;
        bareButton.show();
        bareWatcher.addPath(Platform::reading);
        QObject::connect(watcher, SIGNAL(fileChanged(QString)), &reader, SLOT(read(QString)));
    }
    QObject::connect(watcher, SIGNAL(fileChanged(QString)), &reader, SLOT(take()));
    QCoreApplication::processEvents();
    takeSamples(QCoreApplication::arguments().value(2).toInt());
    takeRelease();
    return reader.button->styleSheet() == ButtonStyles::learned ? 0 : 1;
}

#include "exchange.moc"
