#include "CustomMsgBox.h"
#include "headunit.h"

class TestFeedback : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { takeNotices(); }

    void noticeAtTheBottomInTheColourOfItsLevel()
    {
        const QSize screen = QGuiApplication::primaryScreen()->size();
        const QRect place((screen.width() - 160) / 2, screen.height() - 90, 160, 80);
        const auto flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        const QStringList colours{ "black", "black", "yellow", "red", "black" };
        for (int level = -1; level < 4; ++level) {
            AndroidToast::showTip(level, "NO LEARNING.", nullptr);
            QWidget *toast = QApplication::topLevelWidgets().value(0);
            QVERIFY(toast && toast->isVisible() && AndroidToast::isShowToast);
            QCOMPARE(toast->geometry(), place);
            QCOMPARE(toast->windowFlags() & flags, flags);
            const auto *label = toast->findChild<QLabel *>();
            const QString style = "QLabel{background-color:white; font-size:22px; color:%1; "
                                  "border-radius: 4px; font:bold}";
            QCOMPARE(label->styleSheet(), style.arg(colours.at(level + 1)));
            QCOMPARE(label->geometry(), QRect(0, 0, 160, 80));
            QVERIFY(label->wordWrap() && label->alignment() == Qt::AlignCenter);
            const QImage image = toast->grab().toImage();
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0); // behind a rounded corner
            QCOMPARE(QColor(image.pixel(5, 5)), QColor(Qt::white));
            takeNotices();
        }
    }

    void noticeFadesInStaysAndFadesOut()
    {
        QElapsedTimer time;
        time.start();
        AndroidToast::showTip(0, "SUCCESS.", nullptr);
        const QPointer<QWidget> toast = QApplication::topLevelWidgets().value(0);
        QCOMPARE(slotsOf(AndroidToast::staticMetaObject),
                 (QStringList{ "private finishAnimation()", "private closeAnimation()" }));
        QCOMPARE(toast->windowOpacity(), 0.0);
        QTRY_COMPARE_WITH_TIMEOUT(toast->windowOpacity(), 1.0, 1800);
        QVERIFY(time.elapsed() >= 900);
        QTRY_VERIFY_WITH_TIMEOUT(toast->windowOpacity() < 1.0, 2000);
        QVERIFY(time.elapsed() >= 1800 && AndroidToast::isShowToast);
        QTRY_VERIFY_WITH_TIMEOUT(toast.isNull(), 2000);
        QVERIFY(time.elapsed() >= 2800 && !AndroidToast::isShowToast);
    }

    void questionInTheMiddle()
    {
        QWidget owner;
        const HeadUnit unit;
        const QString text = "A text that is far too wide for the label";
        const CustomMsgBox question(&owner, text);
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        const QString line = "[msg_print] %1,%2|";
        QCOMPARE(takeLog(), line.arg(screen.width()).arg(screen.height()));
        QVERIFY(!question.parent());
        QCOMPARE(question.geometry(),
                 QRect((screen.width() - 240) / 2, (screen.height() - 160) / 2, 240, 160));
        QCOMPARE(static_cast<int>(question.windowFlags()), 0x803);
        const QString style =
            "background-color:rgb(40,40,40);border-radius:12px!important;outline:none";
        QCOMPARE(slotsOf(*question.metaObject()),
                 (QStringList{ "public slotsYesClick()", "public slotsNoClick()" }));

        const auto *label = question.findChild<QLabel *>();
        QVERIFY(!label->wordWrap() && label->alignment() == Qt::AlignCenter);
        QCOMPARE(label->text(), text);
        QList<QRect> places;
        QStringList styles{ question.styleSheet() };
        for (const QWidget *child : question.findChildren<QWidget *>()) {
            places += child->geometry();
            styles += child->styleSheet();
        }
        QCOMPARE(places,
                 (QList<QRect>{ { 12, 6, 216, 100 }, { 12, 116, 96, 38 }, { 132, 116, 96, 38 } }));
        const QString button = "QPushButton{background-color:rgb(80,80,80);color:white;"
                               "border-radius:2px;border:none;outline:none}";
        const QString labelStyle = "font-size:24px;color:white;font:normal";
        QCOMPARE(styles, (QStringList{ style, labelStyle, button, button }));
    }
};

QTEST_MAIN(TestFeedback)
#include "tst_feedback.moc"
