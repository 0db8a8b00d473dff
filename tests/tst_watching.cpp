#include "learningwindow.h"

#include <QFile>

#include <cstdio>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

enum Method { Truncate, Overwrite, Rename, Pieces };

// All three values are equal, so that half of one text and half of another can be recognised.
QByteArray readingText(int number)
{
    return QString("16:2,%1,%1,%1").arg(1000 + number % 3000).toLatin1();
}

void writeReading(const QByteArray &text, Method method)
{
    const char *path = method == Rename ? "new" : readingPath;
    const int file = open(path, O_WRONLY | O_CREAT | (method == Overwrite ? 0 : O_TRUNC), 0666);
    const int start = method == Pieces ? text.lastIndexOf(',') : 0;
    if (::write(file, text.constData(), start) < 0
        || ::write(file, text.constData() + start, text.size() - start) < 0)
        _exit(1);
    close(file);
    if (method == Rename)
        std::rename(path, readingPath);
}

// Another process writes the readings while this one handles its events. The pause is in us.
void driverWrites(int count, Method method, useconds_t pause)
{
    const pid_t driver = fork();
    for (int i = 0; driver == 0 && i < count; ++i) {
        usleep(pause);
        writeReading(readingText(i), method);
    }
    if (driver == 0)
        _exit(0);
    while (waitpid(driver, nullptr, WNOHANG) == 0)
        handleEvents();
    handleEvents();
}

} // namespace

class TestWatching : public QObject
{
    Q_OBJECT

private slots:
    // The kernel reports both. A release that is read twice would turn the button gray again.
    void aTruncationAndAWriteAreOneReading()
    {
        LearningWindow window;
        window.tap(Home);
        takeLog();
        driverWrites(3000, Truncate, 1000); // no two of them are equal
        const QStringList log = takeLog();
        const int repeated = log.filter("[ChongFuKeys...]").size();
        QVERIFY2(20 * repeated < log.filter("validKey:").size(),
                 qPrintable(QString::number(repeated)));
    }

    void theLastReadingIsSeenAndNoTextIsTorn_data()
    {
        QTest::addColumn<int>("method");
        QTest::newRow("truncate and write") << int(Truncate);
        QTest::newRow("overwrite") << int(Overwrite);
        QTest::newRow("rename") << int(Rename);
        QTest::newRow("two pieces") << int(Pieces);
    }
    void theLastReadingIsSeenAndNoTextIsTorn()
    {
        QFETCH(int, method);
        LearningWindow window;
        window.tap(Home);
        for (int count = 1; count <= 100; ++count) {
            driverWrites(count, static_cast<Method>(method), 0);
            QCOMPARE(window.lastSample(), "314," + QString(readingText(count - 1)).mid(3));
        }
        for (const QString &sample : window.samples())
            QCOMPARE(sample, QString("314,2,%1,%1,%1").arg(sample.section(',', 2, 2)));
    }

    void aFileThatIsCreatedLaterIsNotWatched()
    {
        const HeadUnit unit;
        QFile::remove(readingPath);
        KeyMainWindow window(nullptr);
        window.onFileChange(readingPath);
        write(readingPath, "");
        window.onFileChange(readingPath);
        QCOMPARE(takeLog(), QStringList("[swc_print][!contains(:)] \"\""));
        write(readingPath, "no colon");
        handleEvents();
        QCOMPARE(takeLog(), QStringList());
    }
};

QTEST_MAIN(TestWatching)
#include "tst_watching.moc"
