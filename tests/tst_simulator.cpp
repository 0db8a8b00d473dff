#include "place.h"
#include "program.h"
#include "script.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QMetaObject>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

constexpr char wheelText[] = R"({ "noise": 0, "drift": 0, "bounce": 0, "keys": [
{ "name": "up", "code": 153, "line": 2, "adc": [1000, 500, 4094] },
{ "name": "down", "code": 154, "line": 2, "adc": [2000, 600, 4094] } ] })";

constexpr char configuration[] = R"({ "direction0": [
{ "adc": [1000, 500, 4094], "direction_event": 153, "interval": 600, "road": 1 },
{ "adc": [2000, 600, 4094], "direction_event": 154, "interval": 600, "road": 1 } ],
"direction1": [{ "adc": [9, 700, 4094], "direction_event": 314, "interval": 50, "road": 2 }] })";

// Each is the name of a function below, its input, and how its answer begins.
constexpr char cases[] = R"(
wheel "bounce": -> "bounce" => missing name separator at byte 36
wheel "drift": 0 -> "drift": -1 => a wheel needs "noise"
wheel "noise": 0 -> "noise": 1e308 => a wheel needs "noise"
wheel "keys" -> "key" => a wheel needs "keys"
wheel down -> up => key 2, "up", needs "name"
wheel down -> all => key 2, "all", needs "name"
wheel 2, "adc": [2 -> 4, "adc": [2 => key 2, "down", needs "line"
wheel 153 -> 15.3 => key 1, "up", needs "code"
wheel 2000 -> 4095 => key 2, "down", needs "adc"
hold truncate 0 => down by 2 writes of 15:2,2000,600,4094 to the same file
hold overwrite 0 => down by 2 writes of 15:2,2000,600,40945 to the same file
hold rename 1 =>  by 2 writes of 15:2,2000,600,4094 to another file
hold pieces 11 =>  by 4 writes of 15:2,2000,600,4094 to the same file
script # all||press up 20ms|write rename|hold down|wait 20ms|release|flag 0 1s|decode up => 0: ok ok ok ok ok ok ok ok ok
script decode all => 0: up is decoded as up: learned as 1000 on channel 1, interval 600 down is
script hold up|push up => 1: ok line 2: there is no command "push"
script wait 1ms|release up => 1: ok line 2: "up" is too much (release)
script press => 1: line 1: KEY is missing (press KEY [TIME])
script press foo => 1: line 1: there is no key "foo", only up, down (
script write foo => 1: line 1: there is no way "foo", only truncate,
script press up 0.5s => 1: line 1: "0.5s" is no TIME: whole milliseconds
script wait 20 => 1: line 1: "20" is no TIME: whole milliseconds
script flag 11 1ms => 1: line 1: the flag is "0" after 1ms, not "11"
script decode up down => 1: line 1: up is decoded as up: learned as 1000 on channel 1, interval 600
contentOf /dev/zero => no regular file
contentOf missing => No such file
program echo '[f 1] canel all keys'; echo '[f 1] save all keys' >&2 => good: Saved 3 keys
program echo '[f 1] save all keys'; echo '[f 1] canel all keys' => good: No: nothing is saved
program echo >media/flash/nvm/direction.bak; echo '[f 1] canel all keys' => good: No: the backup is back
program exit 3 => bad: sh failed
program kill -9 $$ => bad: sh failed
)";

class TestSimulator : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> root;
    QScopedPointer<Driver> driver;

    static void put(const char *name, const QString &content)
    {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) != content.size())
            qFatal("can't write %s", name);
    }

    Q_INVOKABLE static QString contentOf(const QString &path)
    {
        QByteArray content;
        const QString fault = readRegularFile(path, &content);
        return fault.isEmpty() ? content : fault;
    }

    Q_INVOKABLE QString wheel(const QString &change) const
    {
        Wheel wheel;
        const QStringList texts = change.split(" -> ");
        return parseWheel(QString(wheelText).replace(texts[0], texts[1]).toUtf8(), &wheel);
    }

    // The kernel counts the writes. A reader that holds the file open shows whether it is still the
    // same one.
    Q_INVOKABLE QString hold(const QString &wayAndFlag)
    {
        const auto writes = [] {
            return contentOf("/proc/self/io").section("syscw: ", 1).section('\n', 0, 0).toInt();
        };
        QFile reader("swc_keys");
        reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        put("swc_flags", wayAndFlag.section(' ', 1));
        driver->way = static_cast<Way>(wayNames().indexOf(wayAndFlag.section(' ', 0, 0)));
        const int before = writes();
        driver->hold(driver->wheel.keys.at(1));
        driver->writeNext();
        const QString text = QString("%1 by %2 writes of %3").arg(driver->function());
        return text.arg(writes() - before).arg(contentOf("swc_keys"))
            + (reader.readAll().startsWith("15:") ? " to the same file" : " to another file");
    }

    // No key may stay held.
    Q_INVOKABLE QString script(QString lines)
    {
        QString text;
        QTextStream stream(&text);
        put("script", lines.replace('|', '\n'));
        const int status = runScript("script", driver.data(), &stream, &stream);
        text.remove("script script: ");
        return QString::number(driver->held() ? -1 : status) + ": " + text.simplified();
    }

    Q_INVOKABLE QString program(const QString &lines) const
    {
        QProcess program;
        startProgram({ "sh", "-c", lines }, root->path(), &program);
        program.waitForFinished();
        return (hasFailed(program) ? "bad: " : "good: ") + outcomeOf(program, *driver);
    }

private slots:
    // Every test runs in the driver's folder.
    void init()
    {
        root.reset(new QTemporaryDir);
        QVERIFY(QDir(root->path()).mkpath("media/flash/nvm"));
        QVERIFY(QDir::setCurrent(root->path() + "/media/flash/nvm"));
        put("direction.json", configuration);
        put("swc_flags", "0");
        put("swc_keys", "16:2,4095,4095,4095");
        Wheel wheel;
        QCOMPARE(parseWheel(wheelText, &wheel), QString());
        driver.reset(new Driver(wheel, root->path(), 100, 1));
    }

    void answers_data()
    {
        QTest::addColumn<QString>("expected");
        for (const QString &line : QString(cases).split('\n', QString::SkipEmptyParts))
            QTest::newRow(qPrintable(line.section(" => ", 0, 0))) << line.section(" => ", 1);
    }

    void answers()
    {
        const QString row = QTest::currentDataTag();
        QFETCH(QString, expected);
        QString answer;
        QVERIFY(QMetaObject::invokeMethod(this, qPrintable(row.section(' ', 0, 0)),
                                          Q_RETURN_ARG(QString, answer),
                                          Q_ARG(QString, row.section(' ', 1))));
        QCOMPARE(answer.left(expected.size()), expected);
        driver->release();
        QCOMPARE(contentOf("swc_keys"), QString("16:2,4095,4095,4095"));
    }

    void decodesTheNearestWithinTheInterval()
    {
        const auto code = [this](int line, int first, int second) {
            return decode({ { line, first, second, 4094 } }, driver->configuration());
        };
        QCOMPARE(code(2, 400, 500), 153); // at an end of the interval, then one step beyond
        QCOMPARE(code(2, 399, 500), 0);
        QCOMPARE(code(2, 1499, 600), 153); // between two, each time nearer to one on its road
        QCOMPARE(code(2, 1501, 500), 154);
        QCOMPARE(code(3, 1000, 500), 0); // the other line has its own keys and road
        QCOMPARE(code(3, 1000, 750), 314);
    }

    void wheelLiesBesideTheHeadUnit()
    {
        const auto place = [](const QRect &freeArea) {
            return placeBeside({ 1024, 600 }, freeArea, { 2, 20 });
        };
        QCOMPARE(place({ 0, 0, 1600, 1000 }), QRect(1026, 0, 482, 500));
        QCOMPARE(place({ 30, 40, 1600, 960 }), QRect(1056, 40, 482, 500)); // panels above and left
        QCOMPARE(place({ 0, 0, 1366, 768 }), QRect(1026, 0, 340, 358)); // smaller
        QCOMPARE(place({ 0, 0, 1024, 768 }), QRect(782, 0, 242, 260)); // over the instructions
    }
};

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
