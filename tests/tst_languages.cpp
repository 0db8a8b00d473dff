#include "learningwindow.h"

#include <QApplication>
#include <QDir>
#include <QTranslator>

namespace {

// Returns true if the label shows its whole text in that size.
bool fits(QLabel *label, const QSize &size)
{
    label->ensurePolished(); // the style sheet sets the size of the font
    const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, size.width(), 1000),
                                                          Qt::TextWordWrap, label->text());
    return lines.width() <= size.width() && lines.height() <= size.height();
}

} // namespace

// Every text of every language, by the name of its catalogue.
class TestLanguages : public QObject
{
    Q_OBJECT

    QTranslator translator;

    static void addLanguages()
    {
        QTest::addColumn<QString>("catalogue");
        for (const QString &name : QDir(CATALOGUES_FOLDER).entryList({ "*.qm" }))
            QTest::newRow(qPrintable(name)) << name;
    }

private slots:
    void init()
    {
        QFETCH(QString, catalogue);
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        QVERIFY(translator.load(catalogue, CATALOGUES_FOLDER));
        QCoreApplication::installTranslator(&translator);
    }

    void cleanup() { QCoreApplication::removeTranslator(&translator); }

    void theInstructionsFit_data() { addLanguages(); }
    void theInstructionsFit()
    {
        for (const QSize &screen : { QSize(800, 480), QSize(1024, 600) }) {
            const HeadUnit unit;
            setScreen(screen);
            const KeyMainWindow window(nullptr);
            QLabel *instructions = window.findChildren<QLabel *>().value(2);
            QVERIFY(fits(instructions, instructions->maximumSize()));
        }
    }

    void theNoticesAreTranslatedAndFit_data() { addLanguages(); }
    void theNoticesAreTranslatedAndFit()
    {
        LearningWindow window;
        const auto check = [this](const char *text) {
            const QString expected = translator.translate("KeyMainWindow", text);
            QLabel *notice = shownNotices().value(0);
            QVERIFY2(notice && !expected.isEmpty() && notice->text() == expected, text);
            QVERIFY2(fits(notice, { 160, 80 }), text);
            pass(3000);
        };
        window.learn(Down, "3,7,8,9");
        window.tap(Down);
        check("LEARNED.");
        window.tap(Home);
        window.measure(3, 7, 8, 9);
        check("REPEAT.");
        window.release();
        check("FAILED.");
        window.tap(Back);
        pass(4000);
        check("NO LEARNING.");
        window.tap(Back);
        window.measure(2, 7, 8, 9);
        window.release();
        check("SUCCESS.");
    }
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
