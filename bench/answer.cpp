#include "androidtoast.h"
#include "buttonstyles.h"
#include "exchange.h"
#include "keymainwindow.h"
#include "platform.h"
#include "records.h"

#include <QApplication>
#include <QFile>
#include <QFileSystemWatcher>
#include <QPushButton>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

// How the window answers the key driver, beside a bare watcher of the same file.
//
//   answer times                          the waits in microseconds: median, 99 % and longest
//   answer window|bare SAMPLES [STORED]   so many samples, on top of so many stored, and a release:
//                                         what takeSamples() and takeRelease() cost

class KeyMainWindowProbe
{
public:
    static QMap<int, QString> &samples(KeyMainWindow &window) { return window.mapSampleKeys; }
    static QMap<int, QString> &learned(KeyMainWindow &window) { return window.mapSwcKeys; }
    static QMap<QPushButton *, int> keys(KeyMainWindow &window) { return window.mapButtonKeys; }

    // As a tap does, but a slow profiler meets no time-out.
    static void select(KeyMainWindow &window, QPushButton *button)
    {
        window.curButton = button;
        window.clickAndValidKeys = { window.mapButtonKeys.value(button) };
    }
};

namespace {

constexpr int learnedKeys = 21; // all but one: a sample is compared with each
constexpr int secondsAtMost = 120;

// The least that answers: it reads a sample, and paints one button on a release.
class BareWatcher : public QObject
{
    Q_OBJECT

public:
    BareWatcher()
    {
        watcher.addPath(Platform::reading);
        connect(&watcher, SIGNAL(fileChanged(QString)), this, SLOT(read(QString)));
        button.show();
        QCoreApplication::processEvents();
    }

    QPushButton button;

private slots:
    void read(const QString &path)
    {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        if (file.readAll() == release)
            button.setStyleSheet(ButtonStyles::learned);
        else
            answer();
    }

private:
    QFileSystemWatcher watcher;
};

class Window
{
public:
    explicit Window(int stored = 0) : buttons(KeyMainWindowProbe::keys(window).keys())
    {
        for (int i = 0; i < learnedKeys; ++i)
            KeyMainWindowProbe::learned(window).insert(i, QString("2,%1,1000,0").arg(1000 + i));
        window.show();
        select(buttons.first());
        const int code = KeyMainWindowProbe::keys(window).value(buttons.first());
        for (int i = 1; i <= stored; ++i)
            KeyMainWindowProbe::samples(window).insert(-i, sampleRecord(code, payload(-i)));
    }

    void select(QPushButton *button)
    {
        KeyMainWindowProbe::select(window, button);
        button->setStyleSheet(ButtonStyles::selected);
        QCoreApplication::processEvents();
    }

    KeyMainWindow window{ nullptr };
    const QList<QPushButton *> buttons;
};

// Every release finds the screen without a notice, as for a person who teaches one key.
void takeNoticesAway()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<AndroidToast *>(widget))
            delete widget;
    }
    AndroidToast::isShowToast = false;
    QCoreApplication::processEvents();
}

using Waits = QVector<double>;

void sampleWaits(Waits *waits)
{
    waitFor(reading(0)); // not counted: it comes right after the start of a whole program
    for (int i = 1; i <= 100; ++i)
        waits->append(waitFor(reading(i)));
}

void windowReleaseWaits(Waits *waits)
{
    Window taught;
    for (int i = 0; i < taught.buttons.size(); ++i) {
        awaitGreen(taught.buttons.at(i));
        taught.select(taught.buttons.at(i));
        waitFor(reading(i));
        waits->append(waitFor(release));
        takeNoticesAway();
    }
    awaitGreen(nullptr);
}

void bareReleaseWaits(Waits *waits)
{
    BareWatcher bare;
    awaitGreen(&bare.button);
    for (int i = 0; i < 22; ++i) {
        bare.button.setStyleSheet(ButtonStyles::unlearned);
        QCoreApplication::processEvents();
        waits->append(waitFor(release));
    }
    awaitGreen(nullptr);
}

void print(const char *figure, Waits window, Waits bare)
{
    std::sort(window.begin(), window.end());
    std::sort(bare.begin(), bare.end());
    const int last = window.size() - 1;
    std::printf("%s median us\t%.0f\t%.0f\n", figure, window.at(last / 2), bare.at(last / 2));
    std::printf("%s 99 %% us\t%.0f\t%.0f\n", figure, window.at(last * 99 / 100),
                bare.at(last * 99 / 100));
    std::printf("%s longest us\t%.0f\t%.0f\n", figure, window.last(), bare.last());
}

void printTimes()
{
    Waits windowSamples;
    Waits bareSamples;
    Waits windowReleases;
    Waits bareReleases;
    for (int block = 0; block < 40; ++block) {
        {
            const Window taught;
            sampleWaits(&windowSamples);
        }
        {
            const BareWatcher bare;
            sampleWaits(&bareSamples);
        }
        windowReleaseWaits(&windowReleases);
        bareReleaseWaits(&bareReleases);
    }
    print("sample", windowSamples, bareSamples);
    print("release", windowReleases, bareReleases);
}

} // namespace

extern "C" __attribute__((noinline)) void takeSamples(int count)
{
    for (int i = 0; i < count; ++i)
        take(reading(i));
}

extern "C" __attribute__((noinline)) void takeRelease()
{
    take(release);
}

int main(int argc, char **argv)
{
    alarm(secondsAtMost);
    QApplication application(argc, argv);
    watchAnswers();

    const QStringList arguments = application.arguments();
    const int samples = arguments.value(2).toInt();
    if (arguments.value(1) == "times") {
        printTimes();
    } else if (arguments.value(1) == "window") {
        const Window taught(arguments.value(3).toInt());
        takeSamples(samples);
        awaitGreen(taught.buttons.first());
        takeRelease();
    } else {
        BareWatcher bare;
        takeSamples(samples);
        awaitGreen(&bare.button);
        takeRelease();
    }
}

#include "answer.moc"
