#include "headunit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QRegularExpression>

int startVelmora(int argc, char **argv); // main()

namespace {

QtMessageHandler recordBefore;
QString font;

// Ends the program as soon as it runs, and looks at its font.
void endAtStart(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    recordBefore(type, context, text);
    if (!text.endsWith("Start Velmora..."))
        return;
    font = QApplication::font().family() + ' ' + QString::number(QApplication::font().pointSize());
    QTimer::singleShot(0, qApp, SLOT(quit()));
}

} // namespace

class TestEntry : public QObject
{
    Q_OBJECT

private slots:
    void logsWhatItStartsWith_data() // the settings and the catalogues
    {
        addRows(R"(
English: 0 => idx:0|+ load true|+ path "en_gb"  install true|
Chinese: 1 => idx:1|+ load true|+ path "zh_rCN"  install true|
a language without a catalogue: 2 => idx:2|+ load true|+ path "en_gb"  install true|
a damaged catalogue: 0 damaged => idx:0|+ load false|+ path "en_gb"  install false|
a folder: 0 folder => idx:0|+ load false|+ path "en_gb"  install false|
no catalogue: 1 missing => idx:1|+ no exist.|)");
    }
    void logsWhatItStartsWith()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        const HeadUnit unit;
        write(settingsPath, "SystemLanguageId=" + input.left(1).toLatin1());
        const QString languages = "application/languages/Velmora_%1.qm";
        QDir().mkpath("application/languages");
        for (const QString name : { "en_gb", "zh_rCN" }) {
            const QString place = languages.arg(name);
            if (input.endsWith("folder"))
                QDir().mkpath(place);
            else if (input.endsWith("damaged"))
                write(place, "damaged");
            else if (!input.endsWith("missing"))
                QFile::copy(CATALOGUES_FOLDER "/Velmora_" + name + ".qm", place);
        }
        recordBefore = qInstallMessageHandler(endAtStart);
        char name[] = "velmora";
        char *arguments[] = { name, nullptr };
        QCOMPARE(startVelmora(1, arguments), 0);
        qInstallMessageHandler(recordBefore);
        QCOMPARE(font, QString("Droid Sans Fallback 16"));

        // Of the line of fonts, as many as it says.
        const QString log = takeLog();
        const QString fonts = log.section("+", 0);
        const auto list =
            QRegularExpression("\\[swc_print\\] list \\((.*)\\) size (\\d+)\\|").match(log);
        QCOMPARE(list.captured(1).count("\", \"") + 1, list.captured(2).toInt());
        QCOMPARE(QString(log)
                     .replace(list.captured(), "fonts|")
                     .replace("[swc_print]", "+")
                     .remove("./application/languages/Velmora_")
                     .remove(".qm"),
                 "[virtual_print][getLanguageIdx]language " + expected
                     + "fonts|+: Start Velmora...|~KeyMainWindow|");
    }
};

QTEST_APPLESS_MAIN(TestEntry)
#include "tst_entry.moc"
