#include "headunit.h"

#include <QFile>

#include <cstdio>

#include <sys/wait.h>
#include <unistd.h>

constexpr int readings = 3000; // no two of them are equal

static QByteArray readingText(int number)
{
    return QString("16:2,%1,0,0").arg(number).toLatin1();
}

class TestWatching : public QObject
{
    Q_OBJECT

private slots:
    // The kernel reports both of them.
    void aTruncationAndAWriteAreOneReading()
    {
        LearningWindow window;
        window.tap(Home);
        const pid_t driver = fork();
        for (int i = 0; driver == 0 && i < readings; ++i) {
            usleep(1000);
            write(readingPath, readingText(i));
        }
        if (driver == 0)
            _exit(0);
        while (waitpid(driver, nullptr, WNOHANG) == 0)
            handleEvents();
        handleEvents();
        QCOMPARE(window.lastSample(), "314," + QString(readingText(readings - 1)).mid(3));
        const QStringList log = takeLog();
        const int repeated = log.filter("[ChongFuKeys...]").size();
        QVERIFY2(100 * repeated < log.filter("validKey:").size(),
                 qPrintable(QString::number(repeated)));
    }

    void aFileThatIsRenamedOverTheOldOneIsFollowed()
    {
        LearningWindow window;
        window.tap(Home);
        QFile old(readingPath); // its watch stays if somebody has it open
        QVERIFY(old.open(QIODevice::ReadOnly));
        for (int i = 0; i < 3; ++i) {
            write("new", readingText(i));
            QCOMPARE(std::rename("new", readingPath), 0);
            handleEvents();
            QCOMPARE(window.samples().size(), i + 1);
        }
        QFile::remove(readingPath);
        handleEvents();
        QVERIFY(takeLog().filter("!contains").isEmpty());
    }

    void aFileThatIsCreatedLaterIsNotWatched()
    {
        const HeadUnit unit;
        QFile::remove(readingPath);
        KeyMainWindow window(nullptr);
        write(readingPath, "no colon");
        window.onFileChange(readingPath);
        takeLog();
        write(readingPath, "no colon");
        handleEvents();
        QCOMPARE(takeLog(), QStringList());
    }
};

QTEST_MAIN(TestWatching)
#include "tst_watching.moc"
