#include "headunit.h"
#include "platformfiles.h"
#include "util.h"

#include <QFile>
#include <QFileSystemWatcher>
#include <QHash>
#include <QRegularExpression>

#include <cerrno>
#include <climits>
#include <csignal>
#include <memory>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

const QByteArray homeAndBack = R"({"direction0":[{"direction_event":314,"adc":[2301,3349,4094]},
    {"direction_event":250,"adc":[1202,3350,4094]}]})";

// What the next reads of the program do: they give no more bytes than this, and each first does
// what a driver or a failing medium does meanwhile.
size_t mostBytesOfRead = SSIZE_MAX;
std::function<bool(int)> beforeRead; // gives whether the read works; the first has number 1
int reads = 0;

// Nothing is unreadable to root: while this lives, root looks at files as nobody does.
class AsNobody
{
public:
    AsNobody() : before(setfsuid(65534)) { }
    AsNobody(const AsNobody &) = delete;
    AsNobody &operator=(const AsNobody &) = delete;
    ~AsNobody()
    {
        setfsuid(static_cast<uid_t>(before));
        prctl(PR_SET_DUMPABLE, 1); // the leak sanitizer looks into the process
    }

private:
    int before;
};

QByteArray contentOf(const QString &kind)
{
    const QHash<QString, QByteArray> contents{
        { "digits", QByteArray(10000000, '7') },
        { "nul", QByteArray(1000, '\0') },
        { "utf8", "16:2,\xff,{\"direction0\": [\"\xc0\"]}\nSystemLanguageId=\xff\n" },
        { "integers", R"({"direction0":[{"direction_event":-2147483648,"adc":[2147483647,
            -2147483648, 1e300]},{"direction_event":2147483648,"adc":[1,2]}]})" },
        { "deep", "{\"x\":" + QByteArray(100000, '[') },
        { "huge", "SystemLanguageId=1\n" },
    };
    if (kind != "many")
        return contents.value(kind);
    QByteArray many = "{\"direction0\":[7";
    for (int code = 1000; code < 101000; ++code)
        many += ",{\"direction_event\":" + QByteArray::number(code) + ",\"adc\":[1]}";
    return many + "]}";
}

void spoil(const QByteArray &path, const QString &kind)
{
    QFile::remove(path);
    if (kind == "directory")
        mkdir(path, 0777);
    else if (kind == "fifo")
        mkfifo(path, 0666);
    else if (kind == "device")
        QFile::link("/dev/zero", path);
    else if (kind == "failing")
        QFile::link("/proc/self/mem", path);
    else if (kind != "missing")
        write(path, contentOf(kind));
    if (kind == "huge")
        QFile::resize(path, 3LL << 30);
    if (kind == "unreadable")
        chmod(path, 0);
}

// The keys of a configuration, "-" for what is none.
QString keysIn(const QString &path)
{
    struct stat status;
    if (stat(qPrintable(path), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_size > INT_MAX)
        return "-";
    QStringList codes = QString(read(path)).split("direction_event\":").mid(1);
    for (QString &code : codes)
        code = code.section(QRegularExpression("[,}\n]"), 0, 0).trimmed();
    return codes.size() < 9 ? codes.join(' ') : QString("%1 keys").arg(codes.size());
}

// Starts on a unit with one spoiled file, teaches mute by the reading there and a good one, saves.
QString outcomeOf(const QByteArray &path, const QString &kind)
{
    const std::unique_ptr<AsNobody> nobody(kind == "unreadable" ? new AsNobody : nullptr);
    const HeadUnit unit(homeAndBack);
    write(settingsPath, "SystemLanguageId=1");
    spoil(path, kind);
    QString outcome = QString("language %1, ").arg(Util().getLanguageIdx());
    {
        KeyMainWindowProbe probe;
        outcome += QString("%1 learned, ").arg(probe.learned.size());
        tap(probe.button(149));
        probe.window.onFileChange(readingPath);
        for (const char *text : { "12:3,900,800,70", "16:3,4095,4095,4095" }) {
            write("measured", text);
            probe.window.onFileChange("measured");
        }
        if (exitCodeOf([&] { tap(probe.save); }) != 0)
            outcome += "no end, ";
    }
    return outcome + "saved " + keysIn(configurationPath) + ", backup " + keysIn(backupPath)
        + ", flag " + (QFileInfo(flagPath).isFile() ? read(flagPath).left(9) : "-");
}

} // namespace

// Takes the place of the C library's.
extern "C" ssize_t pread(int file, void *content, size_t size, off_t offset)
{
    if (beforeRead && !beforeRead(++reads))
        return -1;
    const iovec place{ content, qMin(size, mostBytesOfRead) };
    return preadv(file, &place, 1, offset);
}

// The files exchanged with the platform, and the ways in which the program ends.
class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

    void cleanup()
    {
        mostBytesOfRead = SSIZE_MAX;
        beforeRead = nullptr;
    }

    void takesBadFiles_data() // "file, what it is instead"
    {
        addRows(R"(
direction.json, nothing: missing empty digits huge nul utf8 deep => language 1, 0 learned, saved 149, backup 149, flag 0
direction.json, no file: directory fifo device => language 1, 0 learned, saved -, backup -, flag 0
direction.json, closed: unreadable => language 1, 0 learned, saved , backup -, flag 0
direction.json, other keys: integers => language 1, 1 learned, saved -2147483648 149, backup -2147483648 2147483648, flag 0
direction.json, more keys: many => language 1, 100000 learned, saved 100001 keys, backup 100000 keys, flag 0
direction.bak, missing: missing => language 1, 2 learned, saved 250 314 149, backup 314 250, flag 0
direction.bak, no file: directory fifo device huge => language 1, 2 learned, saved 250 314 149, backup -, flag 0
direction.bak, no keys: unreadable failing empty digits => language 1, 2 learned, saved 250 314 149, backup , flag 0
swc_keys: missing directory unreadable fifo device failing empty digits huge nul utf8 integers deep many => language 1, 2 learned, saved 250 314 149, backup 314 250, flag 0
swc_flags, no file: missing directory fifo device => language 1, 2 learned, saved 250 314 149, backup 314 250, flag -
swc_flags, closed: unreadable failing => language 1, 2 learned, saved 250 314 149, backup 314 250, flag @
swc_flags, anything: empty digits huge => language 1, 2 learned, saved 250 314 149, backup 314 250, flag 0
Corvane/UserData.ini: missing directory unreadable fifo device failing empty digits nul utf8 deep many => language 0, 2 learned, saved 250 314 149, backup 314 250, flag 0
Corvane/UserData.ini, 3 GB: huge => language 1, 2 learned, saved 250 314 149, backup 314 250, flag 0)");
    }
    void takesBadFiles()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const QByteArray file = QByteArray(QTest::currentDataTag()).split(',').first();
        for (const QString &kind : input.split(' ')) {
            const QString outcome = outcomeOf("media/flash/nvm/" + file, kind);
            QVERIFY2(outcome == expected.remove('@'), qPrintable(kind + ": " + outcome));
        }
    }

    void readsAgainUntilTheTextStandsStill()
    {
        for (int changes = 0; changes < 6; ++changes) {
            RunningUnit unit;
            unit.play("314");
            reads = 0;
            beforeRead = [changes](int number) {
                if (number <= changes + 1)
                    write("measured", "7:2,1,2," + QByteArray::number(number));
                return true;
            };
            write("measured", "7:2,1,2,0");
            unit.window.onFileChange("measured");
            const int last = changes < 4 ? changes + 1 : 0;
            QCOMPARE(unit.lastSample, last ? QString("314,2,1,2,%1").arg(last) : QString());
            QCOMPARE(reads, qMin(changes + 2, 5));
        }
    }

    void takesReadsThatAreShortInterruptedOrFail()
    {
        mostBytesOfRead = 100;
        const RunningUnit unit(homeAndBack);
        QCOMPARE(unit.learned.size(), 2);
        write("text", homeAndBack);
        for (const int fault : { EINTR, EIO }) {
            reads = 0;
            beforeRead = [fault](int number) {
                errno = fault;
                return number == 1 || (number > 2 && fault == EINTR);
            };
            QCOMPARE(readFile("text"), fault == EINTR ? homeAndBack : QByteArray());
        }
    }

    void loads_data()
    {
        addRows(R"(
an empty file:  =>
an array on top: [{"direction_event":5}] =>
a cut file: {"direction0":[{"direction_event":5,"adc":[1,2,3]}] =>
groups that are no arrays: {"direction0":{"direction_event":5},"direction1":7} =>
a code in both groups: {"direction1":[{"direction_event":5}],"direction0":[{"direction_event":5}]} => 5   "2"|5   "3"|
a code twice: {"direction0":[{"direction_event":5,"adc":[1]},{"direction_event":5,"adc":[2]}]} => 5   "2,1"|5   "2,2"|
no codes: {"direction0":[{"adc":[1]},{"direction_event":0},{"direction_event":12.5},{"direction_event":"5"},{"direction_event":1e10},7]} =>
four values: {"direction0":[{"direction_event":5,"adc":[1,2,3,4],"road":9}]} => 5   "2,1,2,3,4"|
no numbers: {"direction0":[{"direction_event":5,"adc":[1.5,"2",-3]},{"direction_event":6,"adc":9}]} => 5   "2,0,0,-3"|6   "2"|
carriage returns are dropped: {"direc\rtion1":[{"direction_event":5,"adc":[1\r2]}]} => 5   "3,12"|)");
    }
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
        const auto learned = unit.learned;
        QCOMPARE(exitCodeOf([&] { tap(unit.save); }), 0);
        QCOMPARE(takeLog().replace("[swc_print]", "+"),
                 QString("+[onTouchKeysClicked LINE] save all keys|"
                         "+[func:insertSwcKey1Flag][line:LINE][size:1][key:1][value:1099]|"
                         "+[saveSwcKeys LINE][key:1][value:549]|"
                         "+[insertSwcKey2Flag LINE][size:1][key:3][value:4094]|"
                         "+[saveSwcKeys LINE][key:3][value:2047]|+[func:saveSwcKeys]|"));
        const QByteArray saved = read(configurationPath);
        QCOMPARE(saved, read(QFINDTESTDATA("direction.json")));
        QCOMPARE(read(backupPath), saved);
        QVERIFY(unit.window.loadSwcKeys() == 3 && unit.learned == learned);

        unit.learned.clear();
        unit.play("1=2,9 2=3,7,8,9,1 3=4,1,1,1");
        unit.window.saveSwcKeys();
        QCOMPARE(unit.window.loadSwcKeys(), 2);
        QCOMPARE(unit.learned, (QMap<int, QString>{ { 1, "2,9,0,0" }, { 2, "3,7,8,9" } }));
        QCOMPARE(read(backupPath), saved);
    }

    void leavesNoPartOfABackup()
    {
        RunningUnit unit;
        write(configurationPath, homeAndBack);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit full{ 70, before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &full);
        unit.window.backupDirection();
        setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(!QFile::exists(backupPath));
        unit.window.backupDirection();
        QCOMPARE(read(backupPath), homeAndBack);
    }

    void forgetsAllKeysOnYes()
    {
        RunningUnit unit(homeAndBack);
        unit.play("149 3,4,5,6");
        takeLog();
        QCOMPARE(exitCodeOfClear(unit.clear, [] { answer("Yes"); }), stillRunning);
        QCOMPARE(takeLog().remove(QRegularExpression("\\[msg_print\\] \\d+,\\d+\\|")),
                 QString("[swc_print][onTouchKeysClicked LINE] canel all keys|"
                         "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]|"
                         "[swc_print][func:initSwcKeys][size:0]|"));
        QCOMPARE(unit.state(), QString("waits 149"));
        QCOMPARE(read(flagPath), QByteArray("11"));
        QCOMPARE(read(configurationPath), homeAndBack);

        QCOMPARE(exitCodeOf([&] { tap(unit.save); }), 0);
        QCOMPARE(takeLog(), QString("[swc_print][onTouchKeysClicked LINE] save all keys|"));
        QCOMPARE(read(configurationPath), QByteArray(""));
        QCOMPARE(read(backupPath), homeAndBack);
    }

    void restoresTheBackupOnNo()
    {
        for (const bool hasBackup : { true, false }) {
            const RunningUnit unit(homeAndBack);
            QVERIFY(hasBackup || QFile::remove(backupPath));
            write(configurationPath, "saved later");
            const QString reply = hasBackup ? "No" : "Escape";
            QCOMPARE(exitCodeOfClear(unit.clear, [&] { answer(reply); }), 0);
            QCOMPARE(read(configurationPath), hasBackup ? homeAndBack : "saved later");
        }
    }

    void keepsWhatIsSavedWhereClearWaitsBehindSave()
    {
        RunningUnit unit(homeAndBack);
        unit.play("149=3,4,5,6");
        QByteArray saved;
        const auto tapBoth = [&] {
            tap(unit.save);
            saved = read(configurationPath);
            tap(unit.clear);
        };
        QCOMPARE(exitCodeOf(tapBoth), 0);
        QVERIFY(saved != homeAndBack && unit.learned.size() == 3);
        QCOMPARE(read(configurationPath), saved);
    }

    void createsNoneOfTheDriversFiles()
    {
        const HeadUnit unit;
        QVERIFY(QFile::remove(readingPath));
        {
            KeyMainWindow window(nullptr);
            QCOMPARE(read(flagPath), QByteArray("1"));
            write(readingPath, "7:2,1,2,3"); // comes too late to be watched
            QVERIFY(window.findChild<QFileSystemWatcher *>()->files().isEmpty());
            QVERIFY(QFile::remove(flagPath));
            window.writeClearFlag();
            window.writeLearnFlag(true);
            QVERIFY(!QFile::exists(flagPath));
            write(flagPath, "11");
        }
        QCOMPARE(read(flagPath), QByteArray("0"));
        QCOMPARE(takeLog(), QString("~KeyMainWindow|"));
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
