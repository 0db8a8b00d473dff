#include "headunit.h"
#include "platformfiles.h"
#include "util.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include <sys/fsuid.h>
#include <sys/prctl.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

const QByteArray homeAndBack = R"({"direction0":[{"direction_event":314,"adc":[2301,3349,4094]},
    {"direction_event":250,"adc":[1202,3350,4094]}]})";

QStringList fates; // of the first reads: changed, short, interrupted, failing
int reads = 0;

// Puts something else in the place of a file.
void spoil(const QString &path, const QString &kind)
{
    const QStringList kinds = QString(read(QFINDTESTDATA("tables/kinds.txt"))).split('\n');
    const QString command = kinds.filter(QRegularExpression('^' + kind)).value(0).section(": ", 1);
    const QString line = "file=" + path + "; rm -f $file; " + command;
    QVERIFY2(!command.isEmpty() && std::system(qPrintable(line)) == 0, qPrintable(line));
}

// Starts on a unit with one spoiled file, looks at the reading there, teaches mute and saves.
QString outcomeOf(const QString &path, const QString &kind)
{
    // Nothing is unreadable to root, so root looks at files as nobody does.
    setfsuid(kind == "unreadable" ? 65534 : geteuid());
    const HeadUnit unit(homeAndBack);
    write(settingsPath, "SystemLanguageId=1");
    spoil(path, kind);
    QString outcome = QString("language %1").arg(Util().getLanguageIdx());
    auto probe = std::make_unique<KeyMainWindowProbe>();
    outcome += QString(", keys %1").arg(probe->learned.size());
    probe->play("149");
    probe->window.onFileChange(readingPath);
    probe->play("149=3,900,800,70");
    const int code = exitCodeOf(probe->save);
    outcome += QString(" then %1, exit code %2").arg(probe->window.loadSwcKeys()).arg(code);
    probe->window.writeClearFlag();
    probe.reset();
    const QFileInfo backup(backupPath);
    outcome += ", flag " + (QFileInfo(flagPath).isFile() ? read(flagPath) : "-")
        + QString(", backup %1").arg(backup.isFile() ? backup.size() : -1);
    setfsuid(geteuid());
    prctl(PR_SET_DUMPABLE, 1); // the leak sanitizer looks into the process
    return outcome + (QFile::exists(readingPath) ? "" : ", no reading");
}

} // namespace

// Takes the place of the C library's.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): reserved there
extern "C" ssize_t pread(int file, void *content, size_t size, off_t offset)
{
    const QString fate = fates.value(reads++);
    errno = fate == "interrupted" ? EINTR : EIO;
    if (fate == "interrupted" || fate == "failing")
        return -1;
    if (fate == "changed")
        write("measured", "text " + QByteArray::number(reads));
    const iovec place{ content, fate == "short" ? 3 : size };
    return preadv(file, &place, 1, offset);
}

// The files exchanged with the platform, and the ways in which the program ends.
class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { fates.clear(); }

    void takesBadFiles_data() { addRows("badfiles"); }
    void takesBadFiles()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const QString file = QString(QTest::currentDataTag()).section(',', 0, 0);
        for (const QString &kind : input.split(' '))
            QCOMPARE(kind + ": " + outcomeOf("media/flash/nvm/" + file, kind),
                     kind + ": " + expected);
    }

    void readsUntilTheTextStandsStill_data() { addRows("reads"); }
    void readsUntilTheTextStandsStill()
    {
        QFETCH(QString, input);
        const HeadUnit unit;
        write("measured", "text 0");
        reads = 0;
        fates = input.split(' ');
        const QString text = readFile("measured");
        QTEST(QString("\"%1\" after %2 reads").arg(text).arg(reads), "expected");
    }

    void loads_data() { addRows("configurations"); }
    void loads()
    {
        QFETCH(QString, input);
        RunningUnit unit(input.toUtf8());
        const QString state = unit.state();
        const bool backedUp = QFileInfo(backupPath).lastModified()
            == QFileInfo(configurationPath).lastModified(); // a copy has the file's attributes
        QTEST(takeLog() + state + (backedUp ? "; backed up" : ""), "expected");

        const int count = unit.learned.size();
        unit.play("1=2,1,1,1"); // gone when the file is loaded anew
        QCOMPARE(unit.window.loadSwcKeys(), count);
        QVERIFY(QFile::remove(configurationPath));
        QCOMPARE(unit.window.loadSwcKeys(), -1);
        QCOMPARE(unit.state(), state);
    }

    void ends_data() { addRows("ends"); }
    void ends()
    {
        QFETCH(QString, input);
        const QStringList parts = input.split("; ");
        RunningUnit unit(parts.at(0) == "home and back" ? homeAndBack : "");
        const QByteArray later(5000, 'x');
        write(configurationPath, later);
        unit.play(parts.at(1));
        takeLog();
        const int code = exitCodeOf(parts.at(2) == "save" ? unit.save : unit.clear, [&] {
            answer(parts.at(2));
            unit.save->click(); // waits behind the answer, and must not act
        });
        QStringList outcome{ QString::number(code), unit.state() };
        for (const char *path : { flagPath, configurationPath, backupPath })
            outcome += read(path)
                           .replace(homeAndBack, "home and back")
                           .replace(read(QFINDTESTDATA("direction.json")), "direction.json")
                           .replace(later, "later");
        outcome += takeLog().replace("[swc_print]", "+");
        QTEST(outcome.join("; "), "expected");
    }
};

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
