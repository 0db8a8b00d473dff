#include "exchange.h"

#include "buttonstyles.h"
#include "frames.h"
#include "platform.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QRunnable>
#include <QThreadPool>

#include <atomic>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int napMicroseconds = 200; // the event loop sleeps again by then

QElapsedTimer timer;
std::atomic<qint64> writtenAt; // nanoseconds
qint64 answeredAt; // nanoseconds, 0 while there is no answer
QPushButton *awaitedGreen = nullptr;
QtMessageHandler writeLogLine;

void answerStored(QtMsgType type, const QMessageLogContext &context, const QString &line)
{
    if (line.startsWith("[swc_print][func:insertSampleKeys]"))
        answer();
    writeLogLine(type, context, line);
}

void answerGreen(QWindow *window)
{
    if (awaitedGreen && awaitedGreen->window()->windowHandle() == window
        && awaitedGreen->styleSheet() == ButtonStyles::learned)
        answer();
}

// In place and in one call, so that a reading is one change of the file.
void write(const QByteArray &text)
{
    static const int file = open(Platform::reading, O_WRONLY);
    writtenAt = timer.nsecsElapsed();
    if (pwrite(file, text.constData(), text.size(), 0) != text.size())
        qFatal("%s can't be written", Platform::reading);
}

class Driver : public QRunnable
{
public:
    explicit Driver(const QByteArray &reading) : text(reading) { }

    void run() override
    {
        usleep(napMicroseconds);
        write(text);
    }

private:
    QByteArray text;
};

void awaitAnswer()
{
    while (answeredAt == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

QString payload(int index)
{
    return QString("2,%1,%2,4094").arg(1000 + index * 100 % 3000).arg(1000 + index / 30);
}

QByteArray reading(int index)
{
    return "16:" + payload(index).toLatin1();
}

void watchAnswers()
{
    frameShown = answerGreen;
    writeLogLine = qInstallMessageHandler(answerStored);
    timer.start();
}

void answer()
{
    if (answeredAt == 0)
        answeredAt = timer.nsecsElapsed();
}

void awaitGreen(QPushButton *button)
{
    awaitedGreen = button;
}

void take(const QByteArray &text)
{
    answeredAt = 0;
    write(text);
    awaitAnswer();
}

double waitFor(const QByteArray &text)
{
    answeredAt = 0;
    QThreadPool::globalInstance()->start(new Driver(text));
    awaitAnswer();
    return (answeredAt - writtenAt) / 1000.0;
}
