#include "script.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

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

    void decodesAKeyAsItself()
    {
        QFile file(folder + "direction.json");
        file.open(QIODevice::WriteOnly);
        file.write(
            R"({"direction0":[{"direction_event":314,"adc":[3052,0,0],"road":1,"interval":9}]})");
        file.close();
        QCOMPARE(run("decode home"), QString());
        QCOMPARE(answers, QString("home is decoded as home\nok\n"));
        QVERIFY(run("decode all").startsWith("line 1: not decoded as itself: vol+, mute, vol-"));
        setFlag("1");
        QVERIFY(run("decode home").startsWith("line 1: nothing is decoded while"));
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
        QFETCH(QString, error);
        QDir(folder).mkdir("swc_keys");
        const QByteArray script = QByteArray("# comment\n\n") + QTest::currentDataTag();
        QCOMPARE(run(script + "\nflag 0").left(error.size()), error);
        QCOMPARE(answers, QString("ok\nok\n"));
    }
};

QTEST_GUILESS_MAIN(TestScript)
#include "tst_script.moc"
