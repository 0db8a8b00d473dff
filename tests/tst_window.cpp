#include "headunit.h"

#include <QIcon>
#include <QLayout>
#include <QPixmap>

class TestWindow : public QObject
{
    Q_OBJECT

private slots:
    void theWindowIsBlackAndOnTop()
    {
        const LearningWindow window;
        QWidget plain;
        plain.setWindowFlags(Qt::WindowStaysOnTopHint);
        QCOMPARE(window.windowFlags(), plain.windowFlags());
        QVERIFY(window.autoFillBackground());
        for (const auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            QCOMPARE(window.palette().brush(group, QPalette::Window), QBrush(QColor(0, 0, 0)));
    }

    void theSizesFollowTheScreen_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QSize>("button");
        QTest::addColumn<int>("titleHeight");
        QTest::addColumn<QSize>("instructions");
        QTest::newRow("800 x 480") << QSize(800, 480) << QSize(86, 57) << 54 << QSize(752, 125);
        QTest::newRow("1024 x 600") << QSize(1024, 600) << QSize(110, 72) << 67 << QSize(962, 157);
        QTest::newRow("a panel") << QSize(800, 446) << QSize(150, 72) << 50 << QSize(752, 116);
    }
    void theSizesFollowTheScreen()
    {
        QFETCH(QSize, screen);
        const HeadUnit unit;
        screenSize = screen;
        const KeyMainWindow window(nullptr);
        QCOMPARE(window.geometry(), QRect(QPoint(0, 0), screen));
        for (const QPushButton *button : window.findChildren<QPushButton *>()) {
            QTEST(button->minimumSize(), "button");
            QTEST(button->maximumSize(), "button");
            QTEST(button->iconSize(), "button");
            QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        }
        const auto labels = window.findChildren<QLabel *>();
        QTEST(labels.at(0)->minimumHeight(), "titleHeight");
        QTEST(labels.at(0)->maximumHeight(), "titleHeight");
        QTEST(labels.at(2)->minimumSize(), "instructions");
        QTEST(labels.at(2)->maximumSize(), "instructions");
    }

    void theTextsAreWhiteBetweenGrayLines()
    {
        const LearningWindow window;
        const auto labels = window.findChildren<QLabel *>();
        QCOMPARE(labels.at(0)->text(), QString("Velmora"));
        QCOMPARE(labels.at(0)->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(labels.at(0)->styleSheet(),
                 QString("background-color:rgb(0, 0, 0);font-size:30px;color:white;font:bold"));
        QVERIFY(labels.at(2)->text().endsWith(
            "\n4. Finally, click the green tick key to save and exit."));
        QCOMPARE(labels.at(2)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(labels.at(2)->styleSheet(),
                 QString("background-color:rgb(0, 0, 0);font-size:20px;color:white;font:normal"));
        QVERIFY(labels.at(2)->wordWrap());
        for (int i : { 1, 3, 4 })
            QCOMPARE(labels.at(i)->styleSheet(), QString("background-color:gray;"));
    }

    // Without margins, so that neither fonts nor styles affect the positions.
    void everythingIsInItsPlace()
    {
        LearningWindow window;
        for (QLayout *layout : window.findChildren<QLayout *>()) {
            layout->setContentsMargins(0, 0, 0, 0);
            layout->setSpacing(0);
        }
        window.layout()->setGeometry(QRect(0, 0, 1600, 1200));
        const auto buttons = window.findChildren<QPushButton *>();
        for (int i = 0; i < 22; ++i)
            QCOMPARE(buttons.at(i)->pos(), QPoint(57 + 200 * (i % 8), 422 + 214 * (i / 8)));
        const QString images[] = { ":/img/save.png", ":/img/clear.png" };
        for (int i = 0; i < 2; ++i) {
            const QPushButton *button = buttons.at(22 + i);
            QCOMPARE(button->pos(), QPoint(357 + 800 * i, 1064));
            QCOMPARE(button->icon().pixmap(999).toImage(), QPixmap(images[i]).toImage());
            QCOMPARE(button->styleSheet(), buttons.at(0)->styleSheet());
        }
    }
};

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
