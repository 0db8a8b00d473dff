#include "headunit.h"

#include <QFile>

#include <atomic>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

int watches = 0; // set so far

} // namespace

// Takes the place of the C library's.
extern "C" int inotify_add_watch(int instance, const char *path, uint32_t events) noexcept
{
    ++watches;
    return static_cast<int>(syscall(SYS_inotify_add_watch, instance, path, events));
}

class TestReadings : public QObject
{
    Q_OBJECT

private slots:
    // A driver writes as fast as it can. Every text that is seen must be one that was written, and
    // the last one of every burst must be seen. A file is watched anew only behind a rename, which
    // may be noticed in the next burst. VELMORA_UPDATES is the least number of texts.
    void takesNoTornText()
    {
        const int updates = qMax(10000, qgetenv("VELMORA_UPDATES").toInt());
        RunningUnit unit;
        unit.play("314");
        for (int written = 0, burst = 0; written < updates; ++burst) {
            const auto way = static_cast<Way>(burst % 4);
            // Between the pieces and the next text, the window needs its time to read.
            const int size = way == Way::Pieces ? 1 : 1 + burst % 50;
            QVector<QByteArray> payloads;
            for (int i = 0; i < size; ++i)
                payloads += payloadOf({ 2, i * 83 % 4095, burst * 31 % 4095, written % 4095 });
            QFile held(readingPath); // every second replaced file is not gone
            QVERIFY(burst % 8 < 4 || held.open(QIODevice::ReadOnly));
            const int watchesBefore = watches;
            std::atomic<bool> done{ false };
            std::thread driver([&payloads, &done, way] {
                for (const QByteArray &payload : payloads)
                    writeReading(readingPath, readingText(payload), way);
                done = true;
            });
            while (!done)
                handleEvents();
            driver.join();
            handleEvents();
            QVERIFY(way == Way::Rename || way == Way::Pieces || watches == watchesBefore);
            QCOMPARE(unit.lastSample, "314," + QString(payloads.last()));
            for (const QString &sample : unit.samples)
                QVERIFY2(payloads.contains(sample.section(',', 1).toLatin1()), qPrintable(sample));
            unit.window.initSampleKeys();
            takeLog();
            written += size;
        }
    }
};

QTEST_MAIN(TestReadings)
#include "tst_readings.moc"
