#include "headunit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>

int startVelmora(int argc, char **argv); // main()

namespace {

QtMessageHandler recordHandler;
QFont applicationFont;

// Ends the program as soon as its event loop runs.
void endAfterStart(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    recordHandler(type, context, text);
    applicationFont = QApplication::font();
    if (text.endsWith("Start Velmora..."))
        QTimer::singleShot(0, qApp, SLOT(quit()));
}

QStringList logOfStart()
{
    takeLog();
    recordHandler = qInstallMessageHandler(endAfterStart);
    QByteArray name = "velmora";
    char *arguments[] = { name.data(), nullptr };
    if (startVelmora(1, arguments) != 0)
        return QStringList("failed");
    return takeLog();
}

} // namespace

class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void theLanguageSelectsTheCatalogue_data()
    {
        QTest::addColumn<QByteArray>("index");
        QTest::addColumn<QString>("catalogue");
        QTest::newRow("English") << QByteArray("0") << "Velmora_en_gb.qm";
        QTest::newRow("Chinese") << QByteArray("1") << "Velmora_zh_rCN.qm";
        QTest::newRow("a language without a catalogue") << QByteArray("99") << "Velmora_en_gb.qm";
    }
    void theLanguageSelectsTheCatalogue()
    {
        QFETCH(QByteArray, index);
        QFETCH(QString, catalogue);
        const HeadUnit unit;
        write(settingsPath, "SystemLanguageId=" + index);
        const QString folder = "./application/languages/";
        QDir().mkpath(folder);
        for (const QString &name : QDir(CATALOGUES_FOLDER).entryList({ "*.qm" }))
            QFile::copy(CATALOGUES_FOLDER "/" + name, folder + name);

        const QStringList log = logOfStart();
        QCOMPARE(log.mid(0, 3),
                 (QStringList{ "[virtual_print][getLanguageIdx]language idx:" + index,
                               "[swc_print] load true",
                               "[swc_print] path \"" + folder + catalogue + "\"  install true" }));
        const int fonts = log.value(3).section("size ", 1).toInt();
        QVERIFY(log.value(3).startsWith("[swc_print] list (\""));
        QCOMPARE(log.value(3).count("\", \"") + 1, fonts);
        QCOMPARE(log.mid(4), (QStringList{ "[swc_print]: Start Velmora...", "~KeyMainWindow" }));
        QCOMPARE(applicationFont.family(), QString("Droid Sans Fallback"));
        QCOMPARE(applicationFont.pointSize(), 16);
        QCOMPARE(read(flagPath), QByteArray("0"));
    }

    void aMissingCatalogueIsLogged()
    {
        const HeadUnit unit;
        QCOMPARE(logOfStart().value(0), QString("[swc_print] no exist."));
    }

    void aCatalogueThatIsNoneIsInstalledInVain()
    {
        const HeadUnit unit;
        QDir().mkpath("application/languages");
        write("application/languages/Velmora_en_gb.qm", "not a catalogue");
        const QStringList log = logOfStart();
        QCOMPARE(log.value(0), QString("[swc_print] load false"));
        QVERIFY(log.value(1).endsWith(" install false"));
    }
};

QTEST_APPLESS_MAIN(TestMain)
#include "tst_main.moc"
