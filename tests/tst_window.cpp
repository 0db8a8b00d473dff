#include "learningwindow.h"

#include <QIcon>
#include <QLayout>
#include <QPixmap>

namespace {

const char titleStyle[] = "background-color:rgb(0, 0, 0);font-size:30px;color:white;font:bold";
const char instructionsStyle[] =
    "background-color:rgb(0, 0, 0);font-size:20px;color:white;font:normal";

} // namespace

// What the window looks like, and how it fits the screen.
class TestWindow : public QObject
{
    Q_OBJECT

private slots:
    void theWindowIsBlackAndOnTop()
    {
        LearningWindow window;
        QCOMPARE(window.geometry(), QRect(0, 0, 800, 480));
        window.setWindowFlags(window.windowFlags() & ~Qt::WindowStaysOnTopHint);
        QCOMPARE(window.windowFlags(), QWidget().windowFlags());
        QVERIFY(window.autoFillBackground());
        for (const auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            QCOMPARE(window.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0)));
    }

    void theSizesFollowTheScreen_data()
    {
        QTest::addColumn<QSize>("screenSize");
        QTest::addColumn<QSize>("buttonSize");
        QTest::addColumn<int>("titleHeight");
        QTest::addColumn<QSize>("instructionsSize");
        QTest::newRow("800 x 480") << QSize(800, 480) << QSize(86, 57) << 54 << QSize(752, 125);
        QTest::newRow("1024 x 600") << QSize(1024, 600) << QSize(110, 72) << 67 << QSize(962, 157);
        QTest::newRow("below a panel")
            << QSize(800, 440) << QSize(150, 72) << 49 << QSize(752, 115);
    }
    void theSizesFollowTheScreen()
    {
        QFETCH(QSize, screenSize);
        QFETCH(QSize, buttonSize);
        QFETCH(int, titleHeight);
        QFETCH(QSize, instructionsSize);
        const HeadUnit unit;
        setScreen(screenSize);
        const KeyMainWindow window(nullptr);
        QCOMPARE(window.size(), screenSize);
        for (const QPushButton *button : window.findChildren<QPushButton *>()) {
            QCOMPARE(button->minimumSize(), buttonSize);
            QCOMPARE(button->maximumSize(), buttonSize);
            QCOMPARE(button->iconSize(), buttonSize);
        }
        const auto labels = window.findChildren<QLabel *>();
        QCOMPARE(labels.at(0)->minimumHeight(), titleHeight);
        QCOMPARE(labels.at(0)->maximumHeight(), titleHeight);
        QCOMPARE(labels.at(2)->minimumSize(), instructionsSize);
        QCOMPARE(labels.at(2)->maximumSize(), instructionsSize);
    }

    void theKeysAreThoseOfTheCatalogue_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("code");
        QTest::newRow("home") << 0 << 314;
        QTest::newRow("back") << 1 << 250;
        QTest::newRow("pow") << 2 << 148;
        QTest::newRow("mute") << 3 << 149;
        QTest::newRow("vol+") << 4 << 166;
        QTest::newRow("vol-") << 5 << 167;
        QTest::newRow("last") << 6 << 232;
        QTest::newRow("next") << 7 << 233;
        QTest::newRow("src") << 8 << 315;
        QTest::newRow("enter") << 9 << 157;
        QTest::newRow("bt") << 10 << 347;
        QTest::newRow("hangup") << 11 << 351;
        QTest::newRow("ilink") << 12 << 325;
        QTest::newRow("siri") << 13 << 344;
        QTest::newRow("music") << 14 << 302;
        QTest::newRow("radio") << 15 << 226;
        QTest::newRow("left") << 16 << 155;
        QTest::newRow("right") << 17 << 156;
        QTest::newRow("up") << 18 << 153;
        QTest::newRow("down") << 19 << 154;
        QTest::newRow("ams") << 20 << 326;
        QTest::newRow("playpause") << 21 << 247;
    }
    void theKeysAreThoseOfTheCatalogue()
    {
        QFETCH(int, position);
        QFETCH(int, code);
        const LearningWindow window;
        QPushButton *button = window.findChildren<QPushButton *>().value(position);
        QCOMPARE(window.button(code), button);
        const QPixmap image(QString(":/img/%1.png").arg(QTest::currentDataTag()));
        QVERIFY(!image.isNull());
        QCOMPARE(button->icon().pixmap(999).toImage(), image.toImage());
        QCOMPARE(button->text(), QString());
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QCOMPARE(window.colourOf(code), Gray);
    }

    void saveAndClearAreGrayButtons()
    {
        const LearningWindow window;
        const QPixmap images[] = { QPixmap(":/img/save.png"), QPixmap(":/img/clear.png") };
        const QPushButton *buttons[] = { window.saveButton(), window.clearButton() };
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(buttons[i]->icon().pixmap(999).toImage(), images[i].toImage());
            QCOMPARE(buttons[i]->styleSheet(), window.button(Home)->styleSheet());
            QCOMPARE(buttons[i]->focusPolicy(), Qt::NoFocus);
        }
    }

    void theTextsAreWhiteAndTheLinesGray()
    {
        const LearningWindow window;
        const auto labels = window.findChildren<QLabel *>();
        QCOMPARE(labels.size(), 5);
        QCOMPARE(labels.at(0)->text(), QString("Velmora"));
        QCOMPARE(labels.at(0)->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(labels.at(0)->styleSheet(), QString(titleStyle));
        QVERIFY(labels.at(2)->text().startsWith("The operation steps are as follows:\n1. Click"));
        QCOMPARE(labels.at(2)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(labels.at(2)->styleSheet(), QString(instructionsStyle));
        QVERIFY(labels.at(2)->wordWrap());
        for (int i : { 0, 2 }) {
            QCOMPARE(labels.at(i)->palette().color(QPalette::WindowText), QColor(Qt::white));
            QVERIFY(labels.at(i)->hasScaledContents());
        }
        for (int i : { 1, 3, 4 }) {
            QCOMPARE(labels.at(i)->styleSheet(), QString("background-color:gray;"));
            QCOMPARE(labels.at(i)->minimumHeight(), 1);
            QCOMPARE(labels.at(i)->maximumHeight(), 1);
        }
    }

    // Without margins, on a large screen: neither fonts nor styles decide about the positions.
    void everythingIsInItsPlace()
    {
        LearningWindow window;
        window.findChild<QLabel *>()->setMinimumWidth(300);
        for (QLayout *layout : window.findChildren<QLayout *>()) {
            layout->setContentsMargins(0, 0, 0, 0);
            layout->setSpacing(0);
        }
        window.layout()->setGeometry(QRect(0, 0, 1600, 1200));
        const auto buttons = window.findChildren<QPushButton *>();
        for (int i = 0; i < 22; ++i)
            QCOMPARE(buttons.at(i)->pos(), QPoint(57 + 200 * (i % 8), 422 + 214 * (i / 8)));
        QCOMPARE(window.saveButton()->pos(), QPoint(357, 1064));
        QCOMPARE(window.clearButton()->pos(), QPoint(1157, 1064));
        const QRect expected[] = { { 650, 16, 300, 54 },
                                   { 0, 86, 1600, 1 },
                                   { 424, 152, 752, 125 },
                                   { 0, 343, 1600, 1 },
                                   { 0, 985, 1600, 1 } };
        const auto labels = window.findChildren<QLabel *>();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(labels.at(i)->geometry(), expected[i]);
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
