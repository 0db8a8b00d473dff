#include "headunit.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFont>

int startVelmora(int argc, char **argv); // main()

static QtMessageHandler recordHandler;
static QFont applicationFont;
static QString translation;

static void endAfterStart(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    recordHandler(type, context, text);
    applicationFont = QApplication::font();
    translation = QCoreApplication::translate("KeyMainWindow", "FAILED.");
    if (text.endsWith("Start Velmora..."))
        QTimer::singleShot(0, qApp, SLOT(quit()));
}

static QStringList logOfStart()
{
    recordHandler = qInstallMessageHandler(endAfterStart);
    QByteArray name = "velmora";
    char *arguments[] = { name.data(), nullptr };
    startVelmora(1, arguments);
    qInstallMessageHandler(recordHandler);
    return takeLog();
}

class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void theLanguageSelectsTheTranslation_data()
    {
        QTest::addColumn<QString>("index");
        QTest::addColumn<QString>("file");
        QTest::newRow("English") << "0"
                                 << "en_gb";
        QTest::newRow("Chinese") << "1"
                                 << "zh_rCN";
    }
    void theLanguageSelectsTheTranslation()
    {
        QFETCH(QString, index);
        QFETCH(QString, file);
        const HeadUnit unit;
        write(settingsPath, "SystemLanguageId=" + index.toLatin1());
        QDir().mkpath("application");
        QVERIFY(QFile::link(TRANSLATIONS_FOLDER, "application/languages"));

        const QStringList log = logOfStart();
        QCOMPARE(log.value(0), "[virtual_print][getLanguageIdx]language idx:" + index);
        QCOMPARE(log.value(1), QString(" load true"));
        QCOMPARE(log.value(2),
                 " path \"./application/languages/Velmora_" + file + ".qm\"  install true");
        const QStringList fonts = log.value(3).split("\", \"");
        QVERIFY(fonts.first().startsWith(" list (\""));
        QVERIFY(fonts.last().endsWith("\") size " + QString::number(fonts.size())));
        QCOMPARE(log.value(4), QString(": Start Velmora..."));
        QCOMPARE(log.value(5), QString("~KeyMainWindow"));
        QCOMPARE(applicationFont.family(), QString("Droid Sans Fallback"));
        QCOMPARE(applicationFont.pointSize(), 16);
        QVERIFY(index == "0" || translation != "FAILED.");
    }

    void aTranslationMayBeMissingOrDamaged()
    {
        const HeadUnit unit;
        QCOMPARE(logOfStart().value(0), QString(" no exist."));
        QDir().mkpath("application/languages");
        write("application/languages/Velmora_en_gb.qm", "not a translation");
        QCOMPARE(logOfStart().value(0), QString(" load false"));
    }
};

QTEST_APPLESS_MAIN(TestMain)
#include "tst_main.moc"
