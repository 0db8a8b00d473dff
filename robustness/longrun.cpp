#include "windowprobe.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPushButton>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>

// A driver that writes as fast as it can while the window reads. Every text seen must be one that
// was written, and the last one of every burst must be seen.

namespace {

constexpr int code = 314;
constexpr int valueCount = 4095;
constexpr int largestBurst = 20;
constexpr int allowedGrowth = 1024; // in kilobytes

std::mt19937 randomNumber;

// The third value tells whether the other two are whole.
QByteArray payload()
{
    const int first = static_cast<int>(randomNumber() % valueCount);
    const int second = static_cast<int>(randomNumber() % valueCount);
    const int sum = (first + second) % valueCount;
    return QString("2,%1,%2,%3").arg(first).arg(second).arg(sum).toLatin1();
}

bool isWhole(const QString &sample)
{
    const QStringList fields = sample.split(',');
    return fields.size() == 5
        && (fields.at(2).toInt() + fields.at(3).toInt()) % valueCount == fields.at(4).toInt();
}

void require(bool holds, const char *what, const QString &detail)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", what, detail.toLocal8Bit().constData());
    std::exit(1);
}

// Returns the number of different texts that the window stored.
int writeBurst(KeyMainWindowProbe &probe, int size, Way way)
{
    QList<QByteArray> payloads;
    for (int i = 0; i < size; ++i)
        payloads.append(payload());

    std::atomic<bool> done{ false };
    std::thread driver([&payloads, &done, way] {
        for (const QByteArray &text : payloads)
            writeReading(text, way);
        done = true;
    });
    while (!done)
        handleEvents();
    driver.join();
    handleEvents();

    const QString last = QString("%1,%2").arg(code).arg(QString::fromLatin1(payloads.last()));
    require(probe.lastSample() == last, "The last reading was not seen", last);
    for (const QString &sample : probe.samples())
        require(isWhole(sample), "A torn text became a sample", sample);
    const int stored = probe.samples().size();
    probe.dropSamples();
    return stored;
}

} // namespace

int main(int argc, char **argv)
{
    doWithoutScreen();
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption(
        QCommandLineOption("updates", "How often the driver writes.", "number", "20000"));
    parser.process(application);
    const int updates = parser.value("updates").toInt();

    const HeadUnit unit;
    KeyMainWindowProbe probe;
    probe.keys().key(code)->click();
    handleEvents();

    int residentAtFirst = 0;
    int openAtFirst = 0;
    int written = 0;
    int seen = 0;
    for (int burst = 0; written < updates; ++burst) {
        if (written >= updates / 10 && openAtFirst == 0) {
            residentAtFirst = residentKilobytes();
            openAtFirst = openFiles();
        }
        const auto way = static_cast<Way>(burst % wayCount);
        // Between the pieces and the next text, the window needs its time to read.
        const int size =
            way == Way::InPieces ? 1 : 1 + static_cast<int>(randomNumber() % largestBurst);
        seen += writeBurst(probe, size, way);
        written += size;
    }

    const int growth = residentKilobytes() - residentAtFirst;
    std::fprintf(stderr, "%d updates, %d of them seen, %d kB more resident memory\n", written, seen,
                 growth);
    require(growth < allowedGrowth, "Memory grows", QString::number(growth));
    require(openFiles() == openAtFirst, "Files stay open", QString::number(openFiles()));
    return 0;
}
