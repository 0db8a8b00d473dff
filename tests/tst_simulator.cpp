#include "script.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QTextStream>

namespace {

constexpr char configuration[] =
    "{ \"direction0\": ["
    "{ \"adc\": [1000, 500, 4094], \"direction_event\": 153, \"interval\": 600, \"road\": 1 },"
    "{ \"adc\": [2000, 600, 4094], \"direction_event\": 154, \"interval\": 600, \"road\": 1 } ],"
    "\"direction1\": ["
    "{ \"adc\": [9, 700, 4094], \"direction_event\": 314, \"interval\": 50, \"road\": 2 } ] }";

Wheel twoKeys()
{
    Wheel wheel;
    wheel.keys = { { "up", "UP", 153, { 2, { { 1000, 500, 4094 } } } },
                   { "down", "DOWN", 154, { 2, { { 2000, 600, 4094 } } } } };
    return wheel;
}

} // namespace

class TestSimulator : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void waysOfWriting_data();
    void waysOfWriting();
    void decodes_data();
    void decodes();
    void heldKeyIsDecodedOutsideLearningOnly();
    void scripts_data();
    void scripts();

private:
    void put(const char *name, const QByteArray &content);
    QByteArray contentOf(const char *name);

    QScopedPointer<QTemporaryDir> root;
    DriverOptions options;
};

void TestSimulator::init()
{
    root.reset(new QTemporaryDir);
    QVERIFY(QDir(root->path()).mkpath("media/flash/nvm"));
    options = DriverOptions();
    options.root = root->path();
    options.rate = 100;
}

void TestSimulator::put(const char *name, const QByteArray &content)
{
    QFile file(root->path() + "/media/flash/nvm/" + name);
    file.open(QIODevice::WriteOnly);
    file.write(content);
}

QByteArray TestSimulator::contentOf(const char *name)
{
    QFile file(root->path() + "/media/flash/nvm/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void TestSimulator::waysOfWriting_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<bool>("inPlace");
    QTest::newRow("truncate") << QByteArray() << true;
    QTest::newRow("overwrite") << QByteArray("94") << true;
    QTest::newRow("rename") << QByteArray() << false;
}

// A reader that holds the file open shows whether it is still the same one.
void TestSimulator::waysOfWriting()
{
    QFETCH(QByteArray, left);
    QFETCH(bool, inPlace);
    put("swc_keys", "16:2,1000,4094,4094");
    QFile reader(root->path() + "/media/flash/nvm/swc_keys");
    QVERIFY(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    Driver driver(twoKeys(), options);
    QVERIFY(driver.setWriting(QTest::currentDataTag()));
    QVERIFY(driver.write("14:2,90,4094,4094"));
    QCOMPARE(contentOf("swc_keys"), "14:2,90,4094,4094" + left);
    QCOMPARE(reader.readAll().startsWith("14:"), inPlace);
    QCOMPARE(QDir(root->path() + "/media/flash/nvm").entryList(QDir::Files),
             QStringList("swc_keys"));
}

void TestSimulator::decodes_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("code");
    QTest::newRow("the learned value") << 2 << 1000 << 500 << 153;
    QTest::newRow("the interval's lower end") << 2 << 400 << 500 << 153;
    QTest::newRow("one step below the interval") << 2 << 399 << 500 << 0;
    QTest::newRow("the interval's upper end") << 2 << 2600 << 500 << 154;
    QTest::newRow("one step above the interval") << 2 << 2601 << 500 << 0;
    QTest::newRow("the first of two is nearer") << 2 << 1499 << 600 << 153;
    QTest::newRow("the second of two is nearer") << 2 << 1501 << 500 << 154;
    QTest::newRow("the other line has its own keys") << 3 << 1000 << 500 << 0;
    QTest::newRow("the other line has its own road") << 3 << 1000 << 750 << 314;
}

void TestSimulator::decodes()
{
    QFETCH(int, line);
    QFETCH(int, first);
    QFETCH(int, second);
    const Measurement measurement = { line, { { first, second, 4094 } } };
    QTEST(Decoder(configuration).decode(measurement), "code");
}

void TestSimulator::heldKeyIsDecodedOutsideLearningOnly()
{
    const Wheel wheel = twoKeys();
    Driver driver(wheel, options);
    QCOMPARE(driver.start(), QString());
    QCOMPARE(contentOf("swc_flags"), QByteArray("0"));
    put("direction.json", configuration);
    QSignalSpy wrote(&driver, SIGNAL(wrote(QString, int)));
    for (const char *flag : { "1", "11", "0" }) {
        put("swc_flags", flag);
        wrote.clear();
        driver.hold(wheel.keys.at(1));
        QTRY_VERIFY(wrote.count() >= 3);
        QCOMPARE(wrote.last().first().toString(), QString("15:2,2000,600,4094"));
        QCOMPARE(wrote.last().last().toInt(), QByteArray(flag) == "0" ? 154 : 0);
        driver.release();
        QCOMPARE(contentOf("swc_keys"), QByteArray("16:2,4095,4095,4095"));
    }
}

void TestSimulator::scripts_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char *name, const char *lines, const char *fault) {
        QTest::newRow(name) << QByteArray(lines) << QString(fault);
    };
    row("every command",
        "# all\n\npress up 20ms\nwrite rename\nhold down\nwait 20ms\nrelease\n"
        "flag 0 1s\ndecode up\ndecode all",
        "");
    row("an unknown command", "\npush up\n", "line 2: there is no command \"push\"");
    row("a word too many", "wait 1ms\nrelease up", "line 2: the command is: release");
    row("an unknown key", "press left", "line 1: no key of the wheel is named \"left\"");
    row("a time without unit", "wait 20", "line 1: \"20\" is no time");
    row("a release of nothing", "release", "line 1: no key is held");
    row("a second held key", "hold up\nhold down", "line 2: a key is held already");
    row("another flag", "flag 11 1ms", "line 1: the flag is \"0\" after 1ms, not \"11\"");
    row("another function", "decode up down", "line 1: up is decoded as up, not as down");
}

void TestSimulator::scripts()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, fault);
    const Wheel wheel = twoKeys();
    Driver driver(wheel, options);
    QCOMPARE(driver.start(), QString());
    put("direction.json", configuration);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(lines);
    file.seek(0);

    QString answers;
    QTextStream output(&answers);
    const QString told = Script(&driver, wheel, &output).run(file.handle());
    output.flush();
    QVERIFY2(fault.isEmpty() ? told.isEmpty() : told.startsWith(fault), qPrintable(told));
    const int failingLine = told.section(' ', 1, 1).section(':', 0, 0).toInt();
    const int done = fault.isEmpty() ? lines.count('\n') + 1 : failingLine - 1;
    QCOMPARE(answers.count("ok\n"), done);
    QVERIFY(!driver.isHeld());
}

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
