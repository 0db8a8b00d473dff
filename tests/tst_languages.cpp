#include "learningwindow.h"

#include <QApplication>
#include <QDir>
#include <QTranslator>

// The texts of every language, by the name of its catalogue.
class TestLanguages : public QObject
{
    Q_OBJECT

    QTranslator translator;

    void checkNotice(const char *source)
    {
        QLabel *notice = shownNotices().value(0);
        const QString text = translator.translate("KeyMainWindow", source);
        QVERIFY2(notice && !text.isEmpty() && notice->text() == text, source);
        checkFit(notice, { 160, 80 });
        pass(3000);
    }

    static void checkFit(QLabel *label, const QSize &size)
    {
        label->ensurePolished(); // the style sheet sets the size of the font
        const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, size.width(), 1000),
                                                              Qt::TextWordWrap, label->text());
        QVERIFY2(lines.width() <= size.width() && lines.height() <= size.height(),
                 qPrintable(label->text()));
    }

private slots:
    void theTextsAreTranslatedAndFit_data()
    {
        QTest::addColumn<QString>("catalogue");
        for (const QString &name : QDir(CATALOGUES_FOLDER).entryList({ "*.qm" }))
            QTest::newRow(qPrintable(name)) << name;
    }
    void theTextsAreTranslatedAndFit()
    {
        QFETCH(QString, catalogue);
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        QVERIFY(translator.load(catalogue, CATALOGUES_FOLDER));
        QCoreApplication::installTranslator(&translator);

        LearningWindow window;
        QLabel *instructions = window.findChildren<QLabel *>().value(2);
        checkFit(instructions, { 752, 125 }); // at 800 x 480
        checkFit(instructions, { 962, 157 }); // at 1024 x 600
        window.learn(Down, "3,7,8,9");
        window.tap(Down);
        checkNotice("LEARNED.");
        window.tap(Home);
        window.measure(3, 7, 8, 9);
        checkNotice("REPEAT.");
        window.release();
        checkNotice("FAILED.");
        window.tap(Back);
        pass(4000);
        checkNotice("NO LEARNING.");
        window.tap(Back);
        window.measure(2, 7, 8, 9);
        window.release();
        checkNotice("SUCCESS.");
    }
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
