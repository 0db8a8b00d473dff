#include "androidtoast.h"
#include "headunit.h"

#include <QImage>
#include <QPointer>

class TestNotice : public QObject
{
    Q_OBJECT

private slots:
    void theLevelIsTheColourOfTheText()
    {
        const HeadUnit unit;
        const QString colours[] = { "black", "yellow", "red", "black" };
        for (int level = 0; level < 4; ++level) {
            AndroidToast::showTip(level, "NO LEARNING.", nullptr);
            const QLabel *label = shownNotices().first();
            QCOMPARE(label->text(), QString("NO LEARNING."));
            QCOMPARE(label->styleSheet(),
                     "QLabel{background-color:white; font-size:22px; color:" + colours[level]
                         + "; border-radius: 4px; font:bold}");
            pass(3000);
        }
    }

    void onlyAWhiteBoxAboveTheLowerEdgeShows()
    {
        const HeadUnit unit;
        screenSize = { 1024, 600 };
        AndroidToast::showTip(AndroidToast::Red, "REPEAT.", nullptr);
        const QLabel *label = shownNotices().first();
        QCOMPARE(label->geometry(), QRect(0, 0, 160, 80));
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
        QVERIFY(label->wordWrap());
        QWidget *notice = label->window();
        QCOMPARE(notice->geometry(), QRect(432, 510, 160, 80));
        const auto flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        QCOMPARE(notice->windowFlags() & flags, Qt::WindowFlags(flags));
        const QImage image = notice->grab().toImage();
        QCOMPARE(image.pixel(0, 0), 0U); // transparent outside of a rounded corner
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
