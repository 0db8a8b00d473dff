#include "headunit.h"
#include "platformfiles.h"
#include "util.h"

#include <QFile>
#include <QFileSystemWatcher>
#include <QHash>
#include <QRegularExpression>

#include <cerrno>
#include <climits>
#include <functional>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

const QByteArray homeAndBack = R"({"direction0":[{"direction_event":314,"adc":[2301,3349,4094]},
    {"direction_event":250,"adc":[1202,3350,4094]}]})";

// Gets how many bytes are asked for and gives how many to read at most, -1 for a read that fails.
std::function<ssize_t(size_t)> limitOfRead;

// Puts something else in the place of a file.
void spoil(const char *path, const QString &kind)
{
    QByteArray many = "{\"direction0\":[7";
    for (int code = 1000; kind == "many" && code < 11000; ++code)
        many += ",{\"direction_event\":" + QByteArray::number(code) + ",\"adc\":[1]}";
    const QHash<QString, QByteArray> contents{
        { "unreadable", "SystemLanguageId=1" },
        { "empty", "" },
        { "digits", QByteArray(10000000, '7') },
        { "huge", "SystemLanguageId=1\n" },
        { "utf8", "16:2,\xff,{\"direction0\": [\"\xc0\"]}\nSystemLanguageId=\xff\n" },
        { "integers", R"({"direction0":[{"direction_event":-2147483648,"adc":[2147483647,
            -2147483648, 1e300]},{"direction_event":2147483648,"adc":[1,2]}]})" },
        { "deep", "{\"x\":" + QByteArray(100000, '[') },
        { "many", many + "]}" },
    };
    QFile::remove(path);
    if (contents.contains(kind))
        write(path, contents.value(kind));
    const bool made = (kind == "huge" && QFile::resize(path, 3LL << 30))
        || (kind == "unreadable" && chmod(path, 0) == 0)
        || (kind == "directory" && mkdir(path, 0777) == 0)
        || (kind == "fifo" && mkfifo(path, 0666) == 0)
        || (kind == "device" && QFile::link("/dev/zero", path))
        || (kind == "failing" && QFile::link("/proc/self/mem", path)) || kind == "missing";
    QVERIFY2(made || contents.contains(kind), qPrintable(kind));
}

// Starts on a unit with one spoiled file, looks at the reading there, teaches mute and saves.
QString outcomeOf(const QByteArray &path, const QString &kind)
{
    // Nothing is unreadable to root, so root looks at files as nobody does.
    setfsuid(kind == "unreadable" ? 65534 : geteuid());
    QString outcome;
    {
        const HeadUnit unit(homeAndBack);
        write(settingsPath, "SystemLanguageId=1");
        spoil(path, kind);
        outcome = QString("language %1, keys %2").arg(Util().getLanguageIdx());
        {
            KeyMainWindowProbe probe;
            outcome = outcome.arg(probe.learned.size());
            probe.play("149");
            probe.window.onFileChange(readingPath);
            probe.play("149=3,900,800,70");
            const int code = exitCodeOf(probe.save);
            outcome += QString(" then %1, exit code %2").arg(probe.window.loadSwcKeys()).arg(code);
        }
        const QFileInfo backup(backupPath);
        outcome += ", flag " + (QFileInfo(flagPath).isFile() ? read(flagPath) : "-")
            + QString(", backup %1").arg(backup.isFile() ? backup.size() : -1);
    }
    setfsuid(geteuid());
    prctl(PR_SET_DUMPABLE, 1); // the leak sanitizer looks into the process
    return outcome;
}

} // namespace

// Takes the place of the C library's.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): reserved there
extern "C" ssize_t pread(int file, void *content, size_t size, off_t offset)
{
    const ssize_t limit = limitOfRead ? limitOfRead(size) : SSIZE_MAX;
    if (limit < 0)
        return -1;
    const iovec place{ content, qMin(size, static_cast<size_t>(limit)) };
    return preadv(file, &place, 1, offset);
}

// The files exchanged with the platform, and the ways in which the program ends.
class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { limitOfRead = nullptr; }

    void takesBadFiles_data() { addRows("badfiles"); }
    void takesBadFiles()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const QByteArray file = QByteArray(QTest::currentDataTag()).split(',').first();
        for (const QString &kind : input.split(' ')) {
            const QString outcome = outcomeOf("media/flash/nvm/" + file, kind);
            QVERIFY2(outcome == expected, qPrintable(kind + ": " + outcome));
        }
    }

    void readsAgainUntilTheTextStandsStill()
    {
        int reads = 0;
        for (int changes = 0; changes < 6; ++changes) {
            RunningUnit unit;
            unit.play("314");
            reads = 0;
            limitOfRead = [&reads, changes](size_t size) {
                if (++reads <= changes + 1)
                    write("measured", "7:2,1,2," + QByteArray::number(reads));
                return static_cast<ssize_t>(size);
            };
            write("measured", "7:2,1,2,0");
            unit.window.onFileChange("measured");
            const QString last = QString("314,2,1,2,%1").arg(changes + 1);
            QCOMPARE(unit.lastSample, changes < 4 ? last : QString());
            QCOMPARE(reads, qMin(changes + 2, 5));
        }
    }

    void takesReadsThatAreShortInterruptedOrFail()
    {
        limitOfRead = [](size_t) { return 100; };
        const RunningUnit unit(homeAndBack);
        QCOMPARE(unit.learned.size(), 2);
        for (const int fault : { EINTR, EIO }) {
            int reads = 0;
            limitOfRead = [&reads, fault](size_t) {
                errno = fault;
                ++reads;
                return (fault == EINTR ? reads != 2 : reads % 2 != 0) ? 100 : -1;
            };
            QCOMPARE(readFile(configurationPath), fault == EINTR ? homeAndBack : QByteArray());
        }
    }

    void loads_data() { addRows("configurations"); }
    void loads()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        RunningUnit unit(input.toUtf8());
        QVERIFY(takeLog().startsWith(expected));
        QMap<int, QString> keys;
        for (const QString &key : expected.split('|', QString::SkipEmptyParts))
            keys.insert(key.section(' ', 0, 0).toInt(), key.section('"', 1, 1));
        QCOMPARE(unit.learned, keys);
        QCOMPARE(QFile::exists(backupPath), !keys.isEmpty());

        unit.play("1=2,1,1,1"); // gone when the file is loaded anew
        QCOMPARE(unit.window.loadSwcKeys(), keys.size());
        QCOMPARE(takeLog(), expected);
        QVERIFY(QFile::remove(configurationPath));
        QCOMPARE(unit.window.loadSwcKeys(), -1);
        QCOMPARE(unit.learned, keys);
    }

    void savesAndExits()
    {
        RunningUnit unit;
        write(configurationPath, QByteArray(5000, 'x'));
        unit.play("250=2,1202,3350,4094 314=2,2301,3349,4094 149=3,806,4094,4094");
        QCOMPARE(read(flagPath), QByteArray("1"));
        QCOMPARE(exitCodeOf(unit.save), 0);
        QCOMPARE(takeLog().replace("[swc_print]", "+"),
                 QString("+[onTouchKeysClicked LINE] save all keys|"
                         "+[func:insertSwcKey1Flag][line:LINE][size:1][key:1][value:1099]|"
                         "+[saveSwcKeys LINE][key:1][value:549]|"
                         "+[insertSwcKey2Flag LINE][size:1][key:3][value:4094]|"
                         "+[saveSwcKeys LINE][key:3][value:2047]|+[func:saveSwcKeys]|"));
        const QByteArray saved = read(configurationPath);
        QCOMPARE(saved, read(QFINDTESTDATA("direction.json")));
        QCOMPARE(read(backupPath), saved);

        unit.learned.clear();
        unit.play("1=2 2=3,7,8,9,1 3=4,1,1,1");
        unit.window.saveSwcKeys();
        QVERIFY(read(configurationPath).contains("\"interval\": 0,"));
        QCOMPARE(unit.window.loadSwcKeys(), 2);
        QCOMPARE(unit.learned, (QMap<int, QString>{ { 1, "2,0,0,0" }, { 2, "3,7,8,9" } }));
    }

    // In both answers a tap on save waits behind the answer: it must not act.
    void forgetsAllKeysOnYes()
    {
        RunningUnit unit(homeAndBack);
        unit.play("149 3,4,5,6");
        takeLog();
        const auto reply = [&unit] {
            answer("Yes");
            unit.save->click();
        };
        QCOMPARE(exitCodeOf(unit.clear, reply), stillRunning);
        QCOMPARE(takeLog().remove(QRegularExpression("\\[msg_print\\] \\d+,\\d+\\|")),
                 QString("[swc_print][onTouchKeysClicked LINE] canel all keys|"
                         "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]|"
                         "[swc_print][func:initSwcKeys][size:0]|"));
        QCOMPARE(unit.state(), QString("waits 149"));
        QCOMPARE(read(flagPath), QByteArray("11"));
        QCOMPARE(read(configurationPath), homeAndBack);

        QCOMPARE(exitCodeOf(unit.save), 0);
        QCOMPARE(takeLog(), QString("[swc_print][onTouchKeysClicked LINE] save all keys|"));
        QCOMPARE(read(configurationPath), QByteArray(""));
        QCOMPARE(read(backupPath), homeAndBack);
    }

    void restoresTheBackupOnNo()
    {
        for (const QString reply : { "No", "Escape" }) {
            const RunningUnit unit(homeAndBack);
            QVERIFY(reply == "No" || QFile::remove(backupPath));
            write(configurationPath, "saved later");
            const int code = exitCodeOf(unit.clear, [&unit, &reply] {
                answer(reply);
                unit.save->click();
            });
            QCOMPARE(code, 0);
            QCOMPARE(read(configurationPath), reply == "No" ? homeAndBack : "saved later");
        }
    }

    void createsNoneOfTheDriversFiles()
    {
        const HeadUnit unit;
        QVERIFY(QFile::remove(readingPath) && QFile::remove(flagPath));
        KeyMainWindow window(nullptr);
        write(readingPath, "7:2,1,2,3"); // comes too late to be watched
        QVERIFY(window.findChild<QFileSystemWatcher *>()->files().isEmpty());
        window.writeClearFlag();
        QVERIFY(!QFile::exists(flagPath));
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
