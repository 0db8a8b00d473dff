#include "script.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

class TestScript : public QObject
{
    Q_OBJECT

    QTemporaryDir root;
    const QString folder = root.path() + "/media/flash/nvm/";
    QString answers;

    void setFlag(const QByteArray &flag)
    {
        QFile file(folder + "swc_flags");
        file.open(QIODevice::WriteOnly);
        file.write(flag);
    }

    QString run(QByteArray script)
    {
        Wheel wheel;
        parseWheel(readFile(":/wheel.json"), &wheel);
        wheel.noise = 0;
        Driver driver(wheel, root.path());
        QBuffer input(&script);
        input.open(QIODevice::ReadOnly);
        QTextStream output(&answers);
        return runScript(&input, &driver, &output);
    }

    // All that a script writes into a pipe in the place of swc_keys.
    QByteArray readings(const QByteArray &script)
    {
        const QByteArray path = QFile::encodeName(folder + "swc_keys");
        mkfifo(path, 0600);
        QFile pipe;
        pipe.open(open(path, O_RDWR | O_NONBLOCK), QIODevice::ReadOnly, QFile::AutoCloseHandle);
        return run(script).isEmpty() ? pipe.readAll() : QByteArray();
    }

private slots:
    void init()
    {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        setFlag("0");
        answers.clear();
    }

    void measuresAKeyUntilItsRelease()
    {
        QCOMPARE(readings("press vol+ 0ms"), QByteArray("15:2,331,1490,409416:2,4095,4095,4095"));
        const QByteArray text = readings("press up 60ms");
        QVERIFY2(text.startsWith("16:3,4094,1699,191316:3,4094,1699,1913"), text);
    }

    void decodesTheKeysOfTheCatalogue()
    {
        QByteArray script;
        for (const QByteArray &row : readFile(QFINDTESTDATA("../img/btListInfo.txt")).split('\n')) {
            if (!row.isEmpty() && !row.startsWith('#'))
                script += "decode " + row.left(row.indexOf(' ')) + '\n';
        }
        QVERIFY(run("decode all").startsWith("line 1: not decoded as itself: vol+, mute, vol-"));
        QFile::copy(QFINDTESTDATA("story.json"), folder + "direction.json");
        QCOMPARE(run(script), QString());
        QVERIFY(answers.contains("home is decoded as home\nok\n"));
        setFlag("1");
        QVERIFY(run("decode up").startsWith("line 1: nothing is decoded while"));
    }

    void waitsForTheFlag()
    {
        std::thread program([this] {
            QTest::qSleep(100);
            setFlag("11");
        });
        const QString error = run("flag 11");
        program.join();
        QCOMPARE(error, QString());
    }

    void stopsAtTheFirstLineThatFails_data()
    {
        QTest::addColumn<QString>("error");
        QTest::newRow("push up") << "line 3: \"push up\" is none of press KEY";
        QTest::newRow("press up 0.5s") << "line 3: \"press up 0.5s\" is none of press KEY";
        QTest::newRow("press foo") << "line 3: there is no key foo";
        QTest::newRow("press up 0ms") << "line 3: can't write swc_keys";
        QTest::newRow("flag 1 0ms") << R"(line 3: the flag is "0", not "1")";
    }

    void stopsAtTheFirstLineThatFails()
    {
        QDir(folder).mkdir("swc_keys");
        QFETCH(QString, error);
        const QByteArray script = QByteArray("# comment\n\n") + QTest::currentDataTag();
        QCOMPARE(run(script + "\nflag 0").left(error.size()), error);
        QCOMPARE(answers, QString("ok\nok\n"));
    }
};

QTEST_GUILESS_MAIN(TestScript)
#include "tst_script.moc"
