#include "androidtoast.h"
#include "headunit.h"

#include <QImage>
#include <QPointer>

class TestNotice : public QObject
{
    Q_OBJECT

private slots:
    void theLevelIsTheColourOfTheText_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("colour");
        QTest::newRow("unknown, below") << -1 << "black";
        QTest::newRow("black") << 0 << "black";
        QTest::newRow("yellow") << 1 << "yellow";
        QTest::newRow("red") << 2 << "red";
        QTest::newRow("unknown, above") << 3 << "black";
    }
    void theLevelIsTheColourOfTheText()
    {
        QFETCH(int, level);
        QFETCH(QString, colour);
        const HeadUnit unit;
        AndroidToast::showTip(level, "NO LEARNING.", nullptr);
        QCOMPARE(shownNotices().first()->text(), QString("NO LEARNING."));
        QCOMPARE(shownNotices().first()->styleSheet(),
                 "QLabel{background-color:white; font-size:22px; color:" + colour
                     + "; border-radius: 4px; font:bold}");
    }

    void theNoticeIsAboveTheLowerEdge()
    {
        const HeadUnit unit;
        setScreen({ 1024, 600 });
        AndroidToast::showTip(AndroidToast::Red, "REPEAT.", nullptr);
        const QLabel *label = shownNotices().first();
        QCOMPARE(label->window()->geometry(), QRect(432, 510, 160, 80));
        QCOMPARE(label->geometry(), QRect(0, 0, 160, 80));
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(label->wordWrap());
    }

    void onlyTheWhiteBoxShows()
    {
        const HeadUnit unit;
        AndroidToast::showTip(AndroidToast::Black, "SUCCESS.", nullptr);
        QWidget *notice = shownNotices().first()->window();
        const auto flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        QCOMPARE(notice->windowFlags() & flags, Qt::WindowFlags(flags));
        QVERIFY(notice->testAttribute(Qt::WA_TranslucentBackground));
        const QImage image = notice->grab().toImage();
        QCOMPARE(image.pixel(0, 0), 0U); // outside a rounded corner
        QCOMPARE(image.pixel(5, 5), 0xffffffffU);
    }

    void theNoticeFadesInStaysAndFadesOut()
    {
        const HeadUnit unit;
        AndroidToast::showTip(AndroidToast::Black, "SUCCESS.", nullptr);
        const QPointer<QWidget> notice = shownNotices().first()->window();
        handleEvents();
        for (const int percent : { 0, 25, 50, 75, 100, 100, 100, 100, 100, 75, 50, 25 }) {
            QCOMPARE(qRound(notice->windowOpacity() * 100), percent);
            QVERIFY(AndroidToast::isShowToast);
            pass(250);
        }
        QVERIFY(!notice);
        QVERIFY(!AndroidToast::isShowToast);
    }
};

QTEST_MAIN(TestNotice)
#include "tst_notice.moc"
