#include "headunit.h"

#include <cstdio>
#include <memory>

namespace {

constexpr int stillRunning = -1;

} // namespace

// The files exchanged with the driver, and the ways in which the program ends.
class TestFiles : public QObject
{
    Q_OBJECT

    const QByteArray homeKey = "{\"direction0\":[{\"direction_event\":314,\"adc\":[1,2,3]}]}";

    // Runs the program's event loop, the tap first and then all that it has posted.
    static int exitCodeAfterTap(QPushButton *button, const QString &reply = QString())
    {
        std::unique_ptr<Later> giveUp;
        const Later start(0, [&] {
            const Later later(0, [&] { answer(reply); });
            tap(button);
            giveUp.reset(new Later(200, [] { QCoreApplication::exit(stillRunning); }));
        });
        return QCoreApplication::exec();
    }

    static void replaceReading(const QByteArray &text)
    {
        write("replacement", text);
        if (std::rename("replacement", readingPath) != 0)
            qFatal("can't replace the reading file");
    }

private slots:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }

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
no numbers: {"direction0":[{"direction_event":5,"adc":[1.5,"2",-3]},{"direction_event":6,"adc":9}]} => 5   "2,0,0,-3"|6   "2"|)");
    }
    void loads()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        KeyMainWindowProbe probe(input.toUtf8());
        QVERIFY(takeLog().startsWith(expected));
        QMap<int, QString> keys;
        for (const QString &key : expected.split('|', QString::SkipEmptyParts))
            keys.insert(key.section(' ', 0, 0).toInt(), key.section('"', 1, 1));
        QCOMPARE(probe.learned, keys);
        QCOMPARE(QFile::exists(backupPath), !keys.isEmpty());

        probe.play("1=2,1,1,1"); // gone when the file is loaded anew
        QCOMPARE(probe.window.loadSwcKeys(), keys.size());
        QCOMPARE(takeLog(), expected);
        QVERIFY(QFile::remove(configurationPath));
        QCOMPARE(probe.window.loadSwcKeys(), -1);
        QCOMPARE(probe.learned, keys);
    }

    void savesAndExits()
    {
        KeyMainWindowProbe probe;
        write(configurationPath, QByteArray(5000, 'x'));
        probe.play("250=2,1202,3350,4094 314=2,2301,3349,4094 149=3,806,4094,4094");
        const auto learned = probe.learned;
        QCOMPARE(exitCodeAfterTap(probe.save), 0);
        QCOMPARE(takeLog().replace("[swc_print]", "+"),
                 QString("+[onTouchKeysClicked LINE] save all keys|"
                         "+[func:insertSwcKey1Flag][line:LINE][size:1][key:1][value:1099]|"
                         "+[saveSwcKeys LINE][key:1][value:549]|"
                         "+[insertSwcKey2Flag LINE][size:1][key:3][value:4094]|"
                         "+[saveSwcKeys LINE][key:3][value:2047]|+[func:saveSwcKeys]|"));
        const QByteArray saved = read(configurationPath);
        QCOMPARE(saved, read(QFINDTESTDATA("direction.json")));
        QCOMPARE(read(backupPath), saved);
        QVERIFY(probe.window.loadSwcKeys() == 3 && probe.learned == learned);

        probe.learned.clear();
        probe.play("1=2,9 2=3,7,8,9,1 3=4,1,1,1");
        probe.window.saveSwcKeys();
        QCOMPARE(probe.window.loadSwcKeys(), 2);
        QCOMPARE(probe.learned, (QMap<int, QString>{ { 1, "2,9,0,0" }, { 2, "3,7,8,9" } }));
        QCOMPARE(read(backupPath), saved);
    }

    void forgetsAllKeysOnYes()
    {
        KeyMainWindowProbe probe(homeKey);
        probe.play("250 3,4,5,6");
        takeLog();
        QCOMPARE(exitCodeAfterTap(probe.clear, "Yes"), stillRunning);
        QCOMPARE(takeLog().remove(QRegularExpression("\\[msg_print\\] \\d+,\\d+\\|")),
                 QString("[swc_print][onTouchKeysClicked LINE] canel all keys|"
                         "[swc_print][func:initSampleKeys][mapSampleKeys' size:0]|"
                         "[swc_print][func:initSwcKeys][size:0]|"));
        QCOMPARE(probe.state(), QString("waits 250"));
        QCOMPARE(read(flagPath), QByteArray("11"));
        QCOMPARE(read(configurationPath), homeKey);

        QCOMPARE(exitCodeAfterTap(probe.save), 0);
        QCOMPARE(takeLog(), QString("[swc_print][onTouchKeysClicked LINE] save all keys|"));
        QCOMPARE(read(configurationPath), QByteArray(""));
        QCOMPARE(read(backupPath), homeKey);
    }

    void restoresTheBackupOnNo()
    {
        for (const bool hasBackup : { true, false }) {
            const KeyMainWindowProbe probe(homeKey);
            QVERIFY(hasBackup || QFile::remove(backupPath));
            write(configurationPath, "saved later");
            QCOMPARE(exitCodeAfterTap(probe.clear, hasBackup ? "No" : "Escape"), 0);
            QCOMPARE(read(configurationPath), hasBackup ? homeKey : "saved later");
        }
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

    void followsTheDriver()
    {
        using Write = std::function<void(const QByteArray &)>;
        const Write cut = [](const QByteArray &text) { write(readingPath, text); };
        const Write over = [](const QByteArray &text) {
            write(readingPath, text, QFile::ReadWrite);
        };
        const Write replaceTwice = [](const QByteArray &text) {
            replaceReading("7:2,1,1,1");
            replaceReading(text);
        };
        for (const Write &rewrite : { cut, over, Write(replaceReading), replaceTwice }) {
            KeyMainWindowProbe probe;
            QFile held(readingPath); // so that a replaced file is not gone
            QVERIFY(held.open(QIODevice::ReadOnly));
            probe.play("314");
            for (const QByteArray payload : { "2,120,40,41", "2,130,40,41", "2,140,40,41" }) {
                rewrite("11:" + payload);
                QTRY_VERIFY(probe.samples.values().contains("314," + payload));
            }
            rewrite("16:2,4095,4095,4095");
            QTRY_VERIFY(probe.learned.contains(314));
        }
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
