#include "headunit.h"

#include <QApplication>
#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScreen>
#include <QTranslator>

class TestWindow : public QObject
{
    Q_OBJECT

    const QString instructions = R"(The operation steps are as follows:
1. Click the below button(the button changes from gray to blue);
2. Next, click the key on SWC(the button clicked in the first step changes from blue to green);
3. Repeat steps 1 and 2 to learn all the keys you need on SWC;
4. Finally, click the green tick key to save and exit.)";
    const QByteArray downKey = R"({"direction1":[{"direction_event":154,"adc":[7,8,9]}]})";

    static bool fits(QLabel *label, const QSize &place)
    {
        label->ensurePolished(); // the style sheet has the size of the font
        const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, place.width(), 1000),
                                                              Qt::TextWordWrap, label->text());
        return lines.width() <= place.width() && lines.height() <= place.height();
    }

private slots:
    void embedsTheKeysOfTheWheel()
    {
        const QByteArray text = read(":/img/btListInfo.txt");
        QCOMPARE(text.count('\n'), text.count("\r\n"));
        QCOMPARE(
            QString(text).section('\n', 2).simplified().remove(".png").remove(":/img/"),
            QString("home 314 home back 250 back power 148 pow mute 149 mute vol+ 166 vol+ "
                    "vol- 167 vol- prev 232 last next 233 next src 315 src enter 157 enter "
                    "bt 347 bt hangup 351 hangup ilink 325 ilink siri 344 siri music 302 music "
                    "radio 226 radio left 155 left right 156 right up 153 up down 154 down "
                    "ams 326 ams playpause 247 playpause"));
    }

    // What pictures of screens of 800 x 480 and 1024 x 600 do not show.
    void fillsAnyScreen()
    {
        const RunningUnit unit;
        const QWidget &window = unit.window;
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(window.autoFillBackground() && window.geometry() == screen);
        const auto flags = Qt::WindowType_Mask | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        QCOMPARE(window.windowFlags() & flags, Qt::Window | Qt::WindowStaysOnTopHint);
        for (auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            QCOMPARE(window.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0)));

        const auto *layout = qobject_cast<QBoxLayout *>(window.layout());
        const int stretches[] = { 1, 0, 3, 0, 10 };
        for (int i = 0; i < layout->count(); ++i)
            QCOMPARE(layout->stretch(i), stretches[i]);

        const auto labels = window.findChildren<QLabel *>();
        const int upperPart = 3 * screen.height() / 8;
        const QSize place(static_cast<int>(screen.width() * 0.94),
                          static_cast<int>(upperPart * 0.7));
        QVERIFY(labels.at(2)->minimumSize() == place && labels.at(2)->maximumSize() == place);
        QCOMPARE(labels.at(0)->maximumHeight(), static_cast<int>(upperPart * 0.3));
        QCOMPARE(labels.at(0)->text() + labels.at(2)->text(), "Velmora" + instructions);
        for (const QLabel *label : { labels.at(0), labels.at(2) })
            QVERIFY(label->hasScaledContents()
                    && label->palette().color(QPalette::WindowText) == Qt::white);

        const QSize size(150, 72);
        const auto buttons = window.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), unit.keys.size() + 2);
        for (const QPushButton *button : buttons) {
            QVERIFY(button->minimumSize() == size && button->maximumSize() == size);
            QVERIFY(button->iconSize() == size && !button->icon().isNull());
            QVERIFY(button->focusPolicy() == Qt::NoFocus && button->text().isEmpty());
        }
        QCOMPARE(unit.state(), QString()); // every button is gray
    }

    void showsLearnedKeysAndBacksThemUpOnce()
    {
        const RunningUnit unit(downKey);
        QCOMPARE(takeLog(), QString("154   \"3,7,8,9\"|[swc_print]154 is LEARNED.|"));
        QCOMPARE(unit.state(), QString("154 QPushButton{green}; 154=3,7,8,9"));
        QCOMPARE(read(backupPath), downKey);
        write(backupPath, "an older one");
        const KeyMainWindow another(nullptr);
        QCOMPARE(read(backupPath), QByteArray("an older one"));
    }

    void textsAreTranslatedAndFit()
    {
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        for (const char *catalogue : { "Velmora_en_gb.qm", "Velmora_zh_rCN.qm" }) {
            QTranslator translator;
            QVERIFY(translator.load(catalogue, CATALOGUES_FOLDER));
            QCoreApplication::installTranslator(&translator);
            RunningUnit unit(downKey);
            const auto translated = [&translator](const QString &text) {
                return translator.translate("KeyMainWindow", qPrintable(text));
            };
            QLabel *label = unit.window.findChildren<QLabel *>().at(2);
            QCOMPARE(label->text(), translated(instructions));
            QVERIFY(fits(label, { 752, 125 }) && fits(label, { 962, 157 }));
            for (const QString step : { "LEARNED.:154", "FAILED.:314 up", "REPEAT.:314 3,7,8,9",
                                        "SUCCESS.:314 2,7,8,9 up", "NO LEARNING.:250 4000ms" }) {
                unit.play(step.section(':', 1));
                QLabel *notice = notices().first();
                QVERIFY2(!notice->text().isEmpty() && fits(notice, { 160, 80 }), qPrintable(step));
                QCOMPARE(notice->text(), translated(step.section(':', 0, 0)));
                pass(3000);
            }
        }
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
