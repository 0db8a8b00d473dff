#include "androidtoast.h"
#include "headunit.h"

#include <QApplication>
#include <QDir>
#include <QTranslator>

class TestLanguages : public QObject
{
    Q_OBJECT

    static void checkFit(QLabel *label, const QSize &size)
    {
        label->ensurePolished(); // the style sheet sets the size of the font
        const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, size.width(), 1000),
                                                              Qt::TextWordWrap, label->text());
        QVERIFY2(!label->text().isEmpty() && QRect(QPoint(), size).contains(lines),
                 qPrintable(label->text()));
    }

private slots:
    void theTextsFit_data()
    {
        QTest::addColumn<QString>("file");
        for (const QString &name : QDir(TRANSLATIONS_FOLDER).entryList({ "*.qm" }))
            QTest::newRow(qPrintable(name)) << name;
    }
    void theTextsFit()
    {
        QFETCH(QString, file);
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        QTranslator translator;
        QVERIFY(translator.load(file, TRANSLATIONS_FOLDER));
        QCoreApplication::installTranslator(&translator);

        const LearningWindow window;
        QLabel *instructions = window.findChildren<QLabel *>().value(2);
        checkFit(instructions, { 752, 125 }); // at 800 x 480
        checkFit(instructions, { 962, 157 }); // at 1024 x 600
        for (const char *text : { "SUCCESS.", "FAILED.", "REPEAT.", "NO LEARNING.", "LEARNED." }) {
            AndroidToast::showTip(0, translator.translate("KeyMainWindow", text), nullptr);
            checkFit(shownNotices().first(), { 160, 80 });
            pass(3000);
        }
    }
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
