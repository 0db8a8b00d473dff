#include "headunit.h"
#include "keymainwindow.h"
#include "platformfiles.h"
#include "util.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int changesLeft = 0; // how often the file changes, each time after a read has begun

} // namespace

// Takes the place of the C library's function.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): reserved there
extern "C" ssize_t read(int file, void *content, size_t size)
{
    const bool begins = changesLeft > 0 && lseek(file, 0, SEEK_CUR) == 0;
    const long result = syscall(SYS_read, file, content, size);
    if (begins)
        write("file", "text " + QByteArray::number(--changesLeft));
    return static_cast<ssize_t>(result);
}

class TestPlatformFiles : public QObject
{
    Q_OBJECT

private slots:
    void aFileIsReadUntilItNoLongerChanges_data()
    {
        QTest::addColumn<int>("changes");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("no change") << 0 << QByteArray("first");
        QTest::newRow("one change") << 1 << QByteArray("text 0");
        QTest::newRow("three changes") << 3 << QByteArray("text 0");
        QTest::newRow("a change after each read") << 9 << QByteArray("");
    }
    void aFileIsReadUntilItNoLongerChanges()
    {
        QFETCH(int, changes);
        const HeadUnit unit;
        write("file", "first");
        changesLeft = changes;
        const QByteArray text = readFile("file");
        changesLeft = 0;
        QTEST(text, "text");
    }

    void aTextEndsAtANulByte()
    {
        const HeadUnit unit;
        write("file", QByteArray("16:\r\xff\r\n\0:2,1200", 15));
        QCOMPARE(readText("file"), QString::fromUtf16(u"16:\uFFFD\n"));
    }

    void aFileMayHave16Megabytes()
    {
        const HeadUnit unit;
        QFile file("file");
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(16 << 20));
        QCOMPARE(readFile("file").size(), 16 << 20);
        QVERIFY(file.resize((16 << 20) + 1));
        QCOMPARE(readFile("file"), QByteArray());
    }

    void aCopyHasTheAttributes()
    {
        const HeadUnit unit;
        write("file", "text");
        QFile::setPermissions("file", QFile::ReadOwner | QFile::ExeOwner);
        copyToNewFile("file", "copy");
        QCOMPARE(read("copy"), QByteArray("text"));
        QCOMPARE(QFile::permissions("copy"), QFile::permissions("file"));
    }

    // A special file in place of one of the platform's files neither blocks nor changes.
    void anyFileMayBeSpecial_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("the reading") << readingPath;
        QTest::newRow("the flag") << flagPath;
        QTest::newRow("the configuration") << configurationPath;
        QTest::newRow("the backup") << backupPath;
        QTest::newRow("the settings") << settingsPath;
    }
    void anyFileMayBeSpecial()
    {
        QFETCH(QString, path);
        for (const QString kind : { "FIFO", "device", "directory" }) {
            const HeadUnit unit;
            QFile::remove(path);
            if (kind == "FIFO")
                QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
            else if (kind == "device")
                QVERIFY(QFile::link("/dev/full", path));
            else
                QVERIFY(QDir().mkpath(path));
            KeyMainWindow window(nullptr);
            QCOMPARE(Util().getLanguageIdx(), 0);
            window.onFileChange(readingPath);
            window.saveSwcKeys();
            window.backupDirection();
            window.writeClearFlag();
            QVERIFY2(QFileInfo(path).exists() && !QFileInfo(path).isFile(), qPrintable(kind));
        }
    }
};

QTEST_MAIN(TestPlatformFiles)
#include "tst_platformfiles.moc"
