#include "place.h"
#include "program.h"
#include "script.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

class TestSimulator : public QObject
{
    Q_OBJECT

    Driver driver;

    static void put(const char *name, const QByteArray &content)
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }

    // As the kernel counts them.
    static int writes()
    {
        return QString(contentOfFile("/proc/self/io"))
            .section("syscw: ", 1)
            .section('\n', 0, 0)
            .toInt();
    }

    // What the script says of a wheel and does to the driver's file: one that was opened before
    // shows what became of it only where it is still the same one.
    QString script(const QString &input)
    {
        const QStringList fields = input.split('|');
        const QString wheel = QString(contentOfFile(":/wheel.json")).replace(fields[1], fields[2]);
        QString answer = parseWheel(wheel.toUtf8(), &driver.wheel);
        if (!answer.isEmpty())
            return answer;
        driver.wheel.noise = driver.wheel.drift = driver.wheel.bounce = 0;
        driver.way = static_cast<Way>(wayNames().indexOf(fields[0]));
        put("swc_flags", fields.value(4, "0").toUtf8());
        put("script", fields[3].toUtf8().replace(';', '\n'));
        QFile reader("swc_keys");
        reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        QTextStream output(&answer);
        const int before = writes();
        answer += runScript("script", &driver, &output).remove("script script, ");
        return QString("%1: %2 writes to %3 file: %4.")
            .arg(answer.trimmed().replace('\n', "; "))
            .arg(writes() - before)
            .arg(reader.read(1) == "1" ? "the same" : "another",
                 QString(contentOfFile("swc_keys")));
    }

    QString program(const QString &command) const
    {
        QProcess program;
        program.setWorkingDirectory(driver.root);
        program.start(command.section(' ', 0, 0), { "-c", command.section(' ', 1) });
        program.waitForFinished();
        return outcomeOf(program, driver);
    }

    static QString place(const QString &freeArea)
    {
        const QStringList area = freeArea.split(' ');
        const QRect free(area[0].toInt(), area[1].toInt(), area[2].toInt(), area[3].toInt());
        const QRect place = placeBeside({ 1024, 600 }, free, { 2, 20 });
        const QString text = QString("%1 %2 %3 %4").arg(place.x()).arg(place.y());
        return text.arg(place.width()).arg(place.height());
    }

private slots:
    void answers_data()
    {
        QTest::addColumn<QString>("expected");
        for (const QByteArray &row :
             contentOfFile(QFINDTESTDATA("tables/simulator.txt")).split('\n')) {
            if (row.contains(" => "))
                QTest::newRow(row.left(row.indexOf(" => "))) << QString(row).section(" => ", 1);
        }
    }

    // In the driver's part of a new root folder. The intervals of line 2 are wide enough to meet.
    void answers()
    {
        const QTemporaryDir root;
        driver = Driver();
        driver.root = root.path();
        driver.period = 10;
        QVERIFY(QDir().mkpath(root.path() + "/media/flash/nvm"));
        QVERIFY(QDir::setCurrent(root.path() + "/media/flash/nvm"));
        put("direction.json", contentOfFile(QFINDTESTDATA("story.json")).replace("165", "600"));
        put("swc_keys", "++++++++++++++++++++");
        QFETCH(QString, expected);
        const QString row = QTest::currentDataTag();
        const QString input = row.section(' ', 1);
        const QString answer = row.startsWith("script") ? script(input)
            : row.startsWith("program")                 ? program(input)
                                                        : place(input);
        QCOMPARE(answer.left(expected.size()), expected);
    }
};

QTEST_GUILESS_MAIN(TestSimulator)
#include "tst_simulator.moc"
