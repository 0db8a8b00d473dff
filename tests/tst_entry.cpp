#include "headunit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QRegularExpression>

int startVelmora(int argc, char **argv); // main()

namespace {

QtMessageHandler recordBefore;
QFont font; // at the last line of the log

// Ends the program as soon as it runs.
void endAtStart(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    recordBefore(type, context, text);
    font = QApplication::font();
    if (text.endsWith("Start Velmora..."))
        QTimer::singleShot(0, qApp, SLOT(quit()));
}

} // namespace

class TestEntry : public QObject
{
    Q_OBJECT

private slots:
    void logsWhatItStartsWith_data() { addRows("entry"); }
    void logsWhatItStartsWith()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const QString row = QTest::currentDataTag();
        const HeadUnit unit;
        const QString languages = "application/languages/Velmora_";
        write(settingsPath, input.toUtf8());
        QDir().mkpath("application/languages");
        for (const QString name : { "en_gb.qm", "zh_rCN.qm" }) {
            if (row.contains("damaged"))
                write(languages + name, "damaged");
            else if (row != "no catalogue")
                QFile::copy(CATALOGUES_FOLDER "/Velmora_" + name, languages + name);
        }
        recordBefore = qInstallMessageHandler(endAtStart);
        QByteArray name = "velmora";
        char *arguments[] = { name.data(), nullptr };
        QCOMPARE(startVelmora(1, arguments), 0);
        QVERIFY(font.family() == "Droid Sans Fallback" && font.pointSize() == 16);

        QString log = takeLog().replace("[swc_print]", "+").remove(languages).remove(".qm");
        const auto fonts = QRegularExpression(R"(list \((.*)\) size (\d+)\|)").match(log);
        QCOMPARE(fonts.captured(1).count("\", \"") + 1, fonts.captured(2).toInt());
        log.remove(fonts.captured()).replace("[virtual_print][getLanguageIdx]", "*");
        QCOMPARE(log, expected + "+ +: Start Velmora...|~KeyMainWindow|");
    }
};

QTEST_APPLESS_MAIN(TestEntry)
#include "tst_entry.moc"
