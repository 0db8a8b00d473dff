#include "script.h"

#include "catalogue.h"
#include "place.h"
#include "program.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

namespace {

constexpr char wheelText[] = R"({
"noise": 0, "drift": 0,
"bounce": 0, "keys": [
{ "name": "up", "code": 153, "line": 2,
"adc": [1000, 500, 4094] },
{ "name": "down", "code": 154, "line": 2,
"adc": [2000, 600, 4094] } ] })";

constexpr char configuration[] = R"({ "direction0": [
{ "adc": [1000, 500, 4094], "direction_event": 153, "interval": 600, "road": 1 },
{ "adc": [2000, 600, 4094], "direction_event": 154, "interval": 600, "road": 1 } ],
"direction1": [
{ "adc": [9, 700, 4094], "direction_event": 314, "interval": 50, "road": 2 } ] })";

void put(const char *name, const QByteArray &content)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", name);
}

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

// As the kernel counts the system calls.
int writesOfThisProcess()
{
    const QByteArray counters = contentOf("/proc/self/io");
    return counters.mid(counters.indexOf("syscw:") + 6).trimmed().split('\n').first().toInt();
}

} // namespace

class TestSimulator : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void builtInWheelHasTheKeysOfTheCatalogue();
    void readsRegularFilesOnly();
    void badWheelIsTold_data();
    void badWheelIsTold();
    void decodesTheNearestWithinTheInterval();
    void waysOfWriting_data();
    void waysOfWriting();
    void heldKeyIsDecodedOutsideLearningOnly();
    void scripts_data();
    void scripts();
    void programsEndIsTold_data();
    void programsEndIsTold();
    void wheelLiesBesideTheHeadUnit();

private:
    QScopedPointer<QTemporaryDir> root;
    QScopedPointer<Driver> driver;
};

// Every test runs in the driver's folder.
void TestSimulator::init()
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

void TestSimulator::builtInWheelHasTheKeysOfTheCatalogue()
{
    QFile file(":/img/btListInfo.txt");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const Catalogue catalogue = readCatalogue(file);
    Wheel wheel;
    QCOMPARE(parseWheel(contentOf(":/wheel.json"), &wheel), QString());
    QCOMPARE(wheel.keys.size(), catalogue.codes.size());
    for (int i = 0; i < catalogue.codes.size(); ++i)
        QCOMPARE(wheel.functionName(catalogue.codes.at(i)), catalogue.names.at(i));
}

void TestSimulator::readsRegularFilesOnly()
{
    QByteArray content;
    QCOMPARE(readRegularFile("/dev/zero", &content), QString("no regular file"));
    QCOMPARE(readRegularFile(".", &content), QString("no regular file"));
    QVERIFY(readRegularFile("missing", &content).startsWith("No such file"));
}

void TestSimulator::badWheelIsTold_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char *name, const char *from, const char *to, const char *fault) {
        QTest::newRow(name) << from << to << fault;
    };
    row("no colon", R"("bounce":)", R"("bounce")", "missing name separator at byte 36");
    row("a negative drift", R"("drift": 0)", R"("drift": -1)", R"(a wheel needs "noise")");
    row("noise without end", R"("noise": 0)", R"("noise": 1e308)", R"(a wheel needs "noise")");
    row("no keys", R"("keys")", R"("key")", R"(a wheel needs "keys")");
    row("one name twice", "down", "up", R"(key 2, "up", needs "name")");
    row("a word of the scripts", "down", "all", R"(key 2, "all", needs "name")");
    row("another line", "2,\n\"adc\": [2", "4,\n\"adc\": [2", R"(key 2, "down", needs "line")");
    row("a broken code", "153", "15.3", R"(key 1, "up", needs "code")");
    row("a value of a release", "2000", "4095", R"(key 2, "down", needs "adc")");
}

void TestSimulator::badWheelIsTold()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, fault);
    Wheel wheel;
    const QString told = parseWheel(QString(wheelText).replace(from, to).toUtf8(), &wheel);
    QCOMPARE(told.left(fault.size()), fault);
}

void TestSimulator::decodesTheNearestWithinTheInterval()
{
    const auto code = [this](int line, int first, int second) {
        return decode({ { line, first, second, 4094 } }, driver->configuration());
    };
    QCOMPARE(code(2, 400, 500), 153); // at an end of the interval, then one step beyond
    QCOMPARE(code(2, 399, 500), 0);
    QCOMPARE(code(2, 2600, 500), 154);
    QCOMPARE(code(2, 2601, 500), 0);
    QCOMPARE(code(2, 1499, 600), 153); // between two, each time nearer to one on its road
    QCOMPARE(code(2, 1501, 500), 154);
    QCOMPARE(code(3, 1000, 500), 0); // the other line has its own keys and road
    QCOMPARE(code(3, 1000, 750), 314);
}

void TestSimulator::waysOfWriting_data()
{
    QTest::addColumn<QByteArray>("held");
    QTest::addColumn<bool>("sameFile");
    QTest::addColumn<int>("writes");
    for (const QString &way : wayNames())
        QTest::newRow(qPrintable(way))
            << QByteArray("15:2,2000,600,4094") + (way == "overwrite" ? "5" : "")
            << (way != "rename") << (way == "pieces" ? 2 : 1);
}

// A reader that holds the file open shows whether it is still the same one.
void TestSimulator::waysOfWriting()
{
    QFile reader("swc_keys");
    QVERIFY(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    driver->way = static_cast<Way>(wayNames().indexOf(QTest::currentDataTag()));
    const int before = writesOfThisProcess();
    driver->hold(driver->wheel.keys.at(1));
    QTEST(writesOfThisProcess() - before, "writes");
    QTEST(contentOf("swc_keys"), "held");
    QTEST(reader.readAll().startsWith("15:"), "sameFile");
    driver->release();
    QCOMPARE(contentOf("swc_keys"), QByteArray("16:2,4095,4095,4095"));
    QCOMPARE(QDir().entryList(QDir::Files).size(), 3);
}

void TestSimulator::heldKeyIsDecodedOutsideLearningOnly()
{
    for (const char *flag : { "1", "11", "0" }) {
        put("swc_flags", flag);
        driver->hold(driver->wheel.keys.at(1));
        put("swc_keys", "");
        driver->writeNext();
        QCOMPARE(contentOf("swc_keys"), QByteArray("15:2,2000,600,4094"));
        QCOMPARE(driver->function(), QString(QByteArray(flag) == "0" ? "down" : ""));
        driver->release();
    }
}

void TestSimulator::scripts_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<int>("done");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char *name, const char *lines, int done, const char *fault) {
        QTest::newRow(name) << lines << done << fault;
    };
    row("every command",
        "# all\n\npress up 20ms\nwrite rename\nhold down\nwait 20ms\nrelease\n"
        "flag 0 1s\ndecode up\ndecode all",
        10, "");
    row("an unknown command", "hold up\npush up\n", 1, R"(line 2: there is no command "push")");
    row("a word too many", "wait 1ms\nrelease up", 1, R"(line 2: "up" is too much (release))");
    row("a word too few", "press", 0, "line 1: KEY is missing (press KEY [TIME])");
    row("an unknown key", "press foo", 0, R"(line 1: there is no key "foo", only up, down ()");
    row("an unknown way", "write foo", 0, R"(line 1: there is no way "foo", only truncate,)");
    row("half a second", "press up 0.5s", 0, R"(line 1: "0.5s" is no TIME: whole milliseconds)");
    row("a time without unit", "wait 20", 0, R"(line 1: "20" is no TIME: whole milliseconds)");
    row("another flag", "flag 11 1ms", 0, R"(line 1: the flag is "0" after 1ms, not "11")");
    row("another function", "decode up down", 0,
        "line 1: up is decoded as up: learned as 1000 on channel 1, interval 600");
}

// The last line needs no line end, and no key stays held.
void TestSimulator::scripts()
{
    QFETCH(QString, lines);
    QFETCH(QString, fault);
    put("script", lines.toUtf8());
    QString answers;
    QString told;
    QTextStream answerStream(&answers);
    QTextStream faultStream(&told);
    QCOMPARE(runScript("script", driver.data(), &answerStream, &faultStream),
             fault.isEmpty() ? 0 : 1);
    QTEST(answers.count("ok\n"), "done");
    QCOMPARE(told.mid(QString("script script: ").size(), fault.size()), fault);
    QVERIFY(!driver->held());
}

void TestSimulator::programsEndIsTold_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("save") << "echo '[f 1] canel all keys'; echo '[f 1] save all keys' >&2"
                          << "Saved 3 keys";
    QTest::newRow("No") << "echo '[f 1] save all keys'; echo '[f 1] canel all keys'"
                        << "No: nothing is saved";
    QTest::newRow("No with a backup")
        << "echo > media/flash/nvm/direction.bak; echo '[f 1] canel all keys'"
        << "No: the backup is back";
    QTest::newRow("a failure") << "exit 3"
                               << "sh failed";
    QTest::newRow("a crash") << "kill -9 $$"
                             << "sh failed";
}

void TestSimulator::programsEndIsTold()
{
    QFETCH(QString, lines);
    QFETCH(QString, outcome);
    QProcess program;
    startProgram({ "sh", "-c", lines }, root->path(), &program);
    QVERIFY(program.waitForFinished());
    QCOMPARE(outcomeOf(program, *driver).left(outcome.size()), outcome);
    QCOMPARE(hasFailed(program), outcome.endsWith("failed"));
}

void TestSimulator::wheelLiesBesideTheHeadUnit()
{
    const auto place = [](const QRect &freeArea) {
        return placeBeside({ 1024, 600 }, freeArea, { 2, 20 });
    };
    QCOMPARE(place({ 0, 0, 1600, 1000 }), QRect(1026, 0, 482, 500));
    QCOMPARE(place({ 30, 40, 1600, 960 }), QRect(1056, 40, 482, 500)); // panels above and left
    QCOMPARE(place({ 0, 0, 1366, 768 }), QRect(1026, 0, 340, 358)); // smaller
    QCOMPARE(place({ 0, 0, 1024, 768 }), QRect(782, 0, 242, 260)); // over the instructions
}

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
