#include "headunit.h"

class TestWindow : public QObject
{
    Q_OBJECT

    const QString instructions = R"(The operation steps are as follows:
1. Click the below button(the button changes from gray to blue);
2. Next, click the key on SWC(the button clicked in the first step changes from blue to green);
3. Repeat steps 1 and 2 to learn all the keys you need on SWC;
4. Finally, click the green tick key to save and exit.)";
    const QByteArray downKey = "{\"direction1\":[{\"direction_event\":154,\"adc\":[7,8,9]}]}";
    const QString separatorStyle = "background-color:gray;";

    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static QImage imageOf(const QIcon &icon) { return icon.pixmap(150, 72).toImage(); }

    static QStringList embeddedRows()
    {
        return QString(read(":/img/btListInfo.txt")).section('\n', 2).simplified().split(' ');
    }

    static QVariantList lookOf(const QLabel *label)
    {
        return { label->text(),          label->styleSheet(),       int(label->alignment()),
                 label->minimumHeight(), label->maximumHeight(),    label->wordWrap(),
                 label->minimumWidth(),  label->hasScaledContents() };
    }

    static bool fits(QLabel *label, const QSize &place)
    {
        label->ensurePolished(); // the style sheet has the size of the font
        const QRect lines = label->fontMetrics().boundingRect(QRect(0, 0, place.width(), 1000),
                                                              Qt::TextWordWrap, label->text());
        return lines.width() <= place.width() && lines.height() <= place.height();
    }

private slots:
    void embedsTheKeysOfTheWheelAndTheImages()
    {
        const QByteArray text = read(":/img/btListInfo.txt");
        QVERIFY(text.size() == 905 && text.count('\n') == 24 && text.count("\r\n") == 24);
        QCOMPARE(
            embeddedRows().join(' ').remove(".png").remove(":/img/"),
            QString("home 314 home back 250 back power 148 pow mute 149 mute vol+ 166 vol+ "
                    "vol- 167 vol- prev 232 last next 233 next src 315 src enter 157 enter "
                    "bt 347 bt hangup 351 hangup ilink 325 ilink siri 344 siri music 302 music "
                    "radio 226 radio left 155 left right 156 right up 153 up down 154 down "
                    "ams 326 ams playpause 247 playpause"));

        QList<QSize> sizes;
        for (const QString &name : QDir(":/img").entryList({ "*.png" }, QDir::Files, QDir::Name))
            sizes += QImage(":/img/" + name).size();
        QCOMPARE(sizes.removeAll({ 136, 88 }), 25);
        const QList<QSize> otherSizes{ { 100, 100 }, { 132, 74 }, { 100, 100 }, { 36, 37 } };
        QCOMPARE(sizes, otherSizes); // fail, music, success and xin
        QCOMPARE(QImage(":/img/prev.png"), QImage(":/img/left.png"));
    }

    void coversTheScreenInBlack()
    {
        const KeyMainWindowProbe probe;
        const QWidget &window = probe.window;
        QVERIFY(window.autoFillBackground() && window.geometry() == screen());
        const auto flags = Qt::WindowType_Mask | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        QCOMPARE(window.windowFlags() & flags, Qt::Window | Qt::WindowStaysOnTopHint);
        for (auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            QCOMPARE(window.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0)));
    }

    void showsTitleAndInstructions()
    {
        const KeyMainWindowProbe probe;
        const auto labels = probe.window.findChildren<QLabel *>();
        QCOMPARE(labels.size(), 5);
        const int upperPart = 3 * screen().height() / 8;
        const int titleHeight = static_cast<int>(upperPart * 0.3);
        const int height = static_cast<int>(upperPart * 0.7);
        const int width = static_cast<int>(screen().width() * 0.94);
        const QString style = "background-color:rgb(0, 0, 0);font-size:%1px;color:white;font:%2";
        const int left = Qt::AlignLeft | Qt::AlignVCenter;
        QCOMPARE(lookOf(labels.at(0)),
                 (QVariantList{ "Velmora", style.arg(30).arg("bold"), int(Qt::AlignCenter),
                                titleHeight, titleHeight, false, 0, true }));
        QCOMPARE(lookOf(labels.at(2)),
                 (QVariantList{ instructions, style.arg(20).arg("normal"), left, height, height,
                                true, width, true }));
        QCOMPARE(labels.at(2)->maximumWidth(), width);
        for (int text : { 0, 2 })
            QCOMPARE(labels.at(text)->palette().color(QPalette::WindowText), QColor(Qt::white));
        for (int separator : { 1, 3, 4 })
            QCOMPARE(lookOf(labels.at(separator)),
                     (QVariantList{ "", separatorStyle, left, 1, 1, false, 0, false }));
    }

    void laysOutTheKeysOfTheCatalogue()
    {
        KeyMainWindowProbe probe;
        const auto *layout = qobject_cast<QVBoxLayout *>(probe.window.layout());
        QVERIFY(layout && layout->count() == 5);
        const int stretches[] = { 1, 0, 3, 0, 10 };
        for (int i = 0; i < 5; ++i)
            QCOMPARE(layout->stretch(i), stretches[i]);
        const auto *grid = qobject_cast<QGridLayout *>(layout->itemAt(4)->layout());
        QVERIFY(grid);

        QCOMPARE(grid->itemAtPosition(3, 7)->widget()->styleSheet(), separatorStyle);
        QLayout *controls = grid->itemAtPosition(4, 7)->layout();
        QStringList rows = embeddedRows();
        rows << "save"
             << "0"
             << ":/img/save.png"
             << "clear"
             << "0"
             << ":/img/clear.png";
        const QSize size(150, 72);
        for (int i = 0; i < 24; ++i) {
            QLayoutItem *item =
                i < 22 ? grid->itemAtPosition(i / 8, i % 8) : controls->itemAt(i - 22);
            auto *button = qobject_cast<QPushButton *>(item->widget());
            const QString icon = rows.at(3 * i + 2);
            QVERIFY(button && (i >= 22 || button == probe.button(rows.at(3 * i + 1).toInt())));
            QVERIFY(QFile::exists(icon));
            QCOMPARE(imageOf(button->icon()), imageOf(QIcon(icon)));
            QVERIFY(button->minimumSize() == size && button->maximumSize() == size);
            QCOMPARE(button->iconSize(), size);
            QVERIFY(button->focusPolicy() == Qt::NoFocus && button->text().isEmpty());
        }
        QCOMPARE(probe.state(), QString()); // every button is gray
    }

    void showsLearnedKeysAndBacksThemUpOnce()
    {
        KeyMainWindowProbe probe(downKey);
        QCOMPARE(takeLog(), QString("154   \"3,7,8,9\"|[swc_print]154 is LEARNED.|"));
        QCOMPARE(probe.state(),
                 QString("154 QPushButton{background-color:green;border-radius:6px;"
                         "border:none;outline:none}; 154=3,7,8,9"));
        QCOMPARE(read(backupPath), downKey);
        write(backupPath, "an older one");
        const KeyMainWindow another(nullptr);
        QCOMPARE(read(backupPath), QByteArray("an older one"));
    }

    void speaksChinese()
    {
        QTranslator chinese;
        QVERIFY(chinese.load("Velmora_zh_rCN.qm", CATALOGUES_FOLDER));
        QCoreApplication::installTranslator(&chinese);
        KeyMainWindowProbe probe(downKey);
        const QStringList steps{ "LEARNED.:154", "FAILED.:314 up", "REPEAT.:314 3,7,8,9",
                                 "SUCCESS.:314 2,7,8,9 up", "NO LEARNING.:250 -250" };
        QCOMPARE(lookOf(probe.window.findChildren<QLabel *>().at(2)).first().toString(),
                 chinese.translate("KeyMainWindow", qPrintable(instructions)));
        for (const QString &step : steps) {
            probe.play(step.section(':', 1));
            const QString text = step.section(':', 0, 0);
            const QString translation = chinese.translate("KeyMainWindow", qPrintable(text));
            QVERIFY2(!translation.isEmpty(), qPrintable(text));
            QCOMPARE(takeNotices().join(' ').section(' ', 1), translation);
        }
    }

    void textsFitTheirPlaces_data()
    {
        QTest::addColumn<QString>("catalogue");
        QTest::newRow("English") << "Velmora_en_gb.qm";
        QTest::newRow("Chinese") << "Velmora_zh_rCN.qm";
    }
    void textsFitTheirPlaces()
    {
        QFETCH(QString, catalogue);
        QTranslator translator;
        QVERIFY(translator.load(catalogue, CATALOGUES_FOLDER));
        QCoreApplication::installTranslator(&translator);
        QApplication::setFont(QFont("Droid Sans Fallback", 16));
        const KeyMainWindowProbe probe;
        QLabel *label = probe.window.findChildren<QLabel *>().at(2);
        QVERIFY(fits(label, { 752, 125 }));
        QVERIFY(fits(label, { 962, 157 }));
        for (const char *notice :
             { "SUCCESS.", "FAILED.", "REPEAT.", "NO LEARNING.", "LEARNED." }) {
            AndroidToast toast(nullptr);
            toast.setText(0, KeyMainWindow::tr(notice));
            QVERIFY2(fits(toast.findChild<QLabel *>(), { 160, 80 }), notice);
        }
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
