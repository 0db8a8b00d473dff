#include "headunit.h"
#include "platformfiles.h"

#include <sys/syscall.h>
#include <unistd.h>

static int changesLeft = 0; // of the file, each after a read has begun

// Takes the place of the C library's function.
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
    void aFileIsReadUntilItNoLongerChanges()
    {
        const HeadUnit unit;
        write("file", "first");
        changesLeft = 3;
        QCOMPARE(readFile("file"), QByteArray("text 0"));
        changesLeft = 9;
        QCOMPARE(readFile("file"), QByteArray());
        QCOMPARE(changesLeft, 4); // after five reads
        changesLeft = 0;
    }

    void aTextEndsAtANulByte()
    {
        const HeadUnit unit;
        write("file", QByteArray("16:\r\xff\r\n\0:2,1200", 15));
        QCOMPARE(readText("file"), QString::fromUtf16(u"16:\uFFFD\n"));
    }
};

QTEST_GUILESS_MAIN(TestPlatformFiles)
#include "tst_platformfiles.moc"
