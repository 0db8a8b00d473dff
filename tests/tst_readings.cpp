#include "headunit.h"

#include <QFile>

#include <atomic>
#include <random>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int valueCount = 4095;
constexpr int largestBurst = 20;
constexpr int allowedGrowth = 1024; // in kilobytes

int watches = 0; // set so far

// The third value tells whether the other two are whole.
QByteArray wholePayload(std::mt19937 *random)
{
    const int first = static_cast<int>((*random)() % valueCount);
    const int second = static_cast<int>((*random)() % valueCount);
    return payloadOf({ 2, first, second, (first + second) % valueCount });
}

bool isWhole(const QString &sample)
{
    const QStringList fields = sample.split(',');
    return fields.size() == 5
        && (fields.at(2).toInt() + fields.at(3).toInt()) % valueCount == fields.at(4).toInt();
}

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
    void followsTheDriver()
    {
        for (const Way way : { Way::Truncate, Way::Overwrite, Way::Pieces, Way::Rename }) {
            RunningUnit unit;
            QFile held(readingPath); // so that a replaced file is not gone
            QVERIFY(held.open(QIODevice::ReadOnly));
            unit.play("314");
            for (int value = 1; value < 4; ++value) {
                const int watchesBefore = watches;
                QVERIFY(writeReading(readingPath, "7:2,9,9,9", way)); // not looked at
                unit.receive("7:2,1,2," + QByteArray::number(value), way);
                QCOMPARE(unit.lastSample, QString("314,2,1,2,%1").arg(value));
                QCOMPARE(watches - watchesBefore, way == Way::Rename ? 1 : 0);
            }
        }
    }

    void dropsCarriageReturns()
    {
        RunningUnit unit;
        unit.play("314");
        unit.receive("7:2,\r1,2,3\r\n");
        QCOMPARE(unit.lastSample, QString("314,2,1,2,3"));
    }

    // A driver that writes as fast as it can while the window reads. Every text seen must be one
    // that was written, and the last one of every burst must be seen. VELMORA_UPDATES tells how
    // many.
    void takesNoTornText()
    {
        const int updates = qMax(20000, qgetenv("VELMORA_UPDATES").toInt());
        std::mt19937 random;
        RunningUnit unit;
        unit.play("314");
        int residentAtFirst = 0;
        int burst = 0;
        for (int written = 0; written < updates; ++burst) {
            const Way way = static_cast<Way>(burst % 4);
            // Between the pieces and the next text, the window needs its time to read.
            const int size = way == Way::Pieces ? 1 : 1 + static_cast<int>(random() % largestBurst);
            QVector<QByteArray> payloads;
            for (int i = 0; i < size; ++i)
                payloads.append(wholePayload(&random));
            std::atomic<bool> done{ false };
            std::thread driver([&] {
                for (const QByteArray &text : payloads)
                    writeReading(readingPath, readingText(text), way);
                done = true;
            });
            while (!done)
                handleEvents();
            driver.join();
            handleEvents();
            QCOMPARE(unit.lastSample, "314," + QString(payloads.last()));
            for (const QString &sample : unit.samples)
                QVERIFY2(isWhole(sample), qPrintable(sample));
            unit.window.initSampleKeys();
            takeLog();
            written += size;
            if (residentAtFirst == 0 && written > updates / 10)
                residentAtFirst = residentKilobytes();
        }
        QVERIFY(residentKilobytes() - residentAtFirst < allowedGrowth);
    }
};

QTEST_MAIN(TestReadings)
#include "tst_readings.moc"
