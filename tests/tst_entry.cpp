#include "catalogue.h"
#include "headunit.h"

#include <QApplication>
#include <QBuffer>
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
        const HeadUnit unit(R"({"direction0":[{"direction_event":5}]})");
        const QString languages = "application/languages/Velmora_";
        write(settingsPath, input.toUtf8());
        if (row != "no catalogue")
            QDir().mkpath("application/languages");
        for (const QString name : { "en_gb.qm", "zh_rCN.qm" }) {
            const QString catalogue = CATALOGUES_FOLDER "/Velmora_" + name;
            QFile::copy(row == "no translations in it" ? settingsPath : catalogue,
                        languages + name);
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
        QCOMPARE(log, expected + "+ +: Start Velmora...|5   \"2\"|~KeyMainWindow|");
    }

    void readsCatalogues_data() { addRows("catalogues"); }
    void readsCatalogues()
    {
        QFETCH(QString, input);
        QBuffer file;
        file.setData(input.toUtf8());
        file.open(QIODevice::ReadOnly);
        const Catalogue catalogue = readCatalogue(file);
        QString columns;
        QDebug(&columns) << catalogue.names << catalogue.codes << catalogue.iconPaths;
        QTEST(columns.trimmed(), "expected");
    }
};

QTEST_APPLESS_MAIN(TestEntry)
#include "tst_entry.moc"
