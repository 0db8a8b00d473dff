#include "CustomMsgBox.h"
#include "androidtoast.h"
#include "headunit.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>

class TestFeedback : public QObject
{
    Q_OBJECT

private slots:
    void noticeAtTheBottomInTheColourOfItsLevel()
    {
        const HeadUnit unit;
        const QSize screen = QGuiApplication::primaryScreen()->size();
        const QRect place((screen.width() - 160) / 2, screen.height() - 90, 160, 80);
        const auto flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
        const QStringList colours{ "black", "black", "yellow", "red", "black" };
        for (int level = -1; level < 4; ++level) {
            AndroidToast::showTip(level, "NO LEARNING.", nullptr);
            const QLabel *label = notices().first();
            QWidget *toast = label->window();
            QCOMPARE(toast->geometry(), place);
            QCOMPARE(toast->windowFlags() & flags, flags);
            QCOMPARE(label->styleSheet(),
                     QString("QLabel{background-color:white; font-size:22px; color:%1; "
                             "border-radius: 4px; font:bold}")
                         .arg(colours.at(level + 1)));
            QCOMPARE(label->geometry(), QRect(0, 0, 160, 80));
            QVERIFY(label->wordWrap() && label->alignment() == Qt::AlignCenter);
            const QImage image = toast->grab().toImage();
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0); // behind a rounded corner
            QCOMPARE(QColor(image.pixel(5, 5)), QColor(Qt::white));
            pass(3000);
        }
    }

    void noticeFadesInStaysAndFadesOut()
    {
        const HeadUnit unit;
        AndroidToast::showTip(0, "SUCCESS.", nullptr);
        const QPointer<QWidget> toast = notices().first()->window();
        handleEvents();
        const int opacities[] = { 0, 25, 50, 75, 100, 100, 100, 100, 100, 75, 50, 25 }; // percent
        for (const int opacity : opacities) {
            QCOMPARE(qRound(toast->windowOpacity() * 100), opacity);
            pass(250);
            QCOMPARE(AndroidToast::isShowToast, !toast.isNull());
        }
        QVERIFY(toast.isNull());
        QCOMPARE(slotsOf(AndroidToast::staticMetaObject),
                 (QStringList{ "private finishAnimation()", "private closeAnimation()" }));
    }

    void questionInTheMiddle()
    {
        QWidget owner;
        const HeadUnit unit;
        const QString text = "A text that is far too wide for the label";
        const CustomMsgBox question(&owner, text);
        const QSize screen = QGuiApplication::primaryScreen()->availableSize();
        QCOMPARE(takeLog(), QString("[msg_print] %1,%2|").arg(screen.width()).arg(screen.height()));
        QVERIFY(!question.parent());
        const QPoint corner((screen.width() - 240) / 2, (screen.height() - 160) / 2);
        QCOMPARE(question.geometry(), QRect(corner, QSize(240, 160)));
        QCOMPARE(static_cast<int>(question.windowFlags()), 0x803);
        QCOMPARE(slotsOf(*question.metaObject()),
                 (QStringList{ "public slotsYesClick()", "public slotsNoClick()" }));

        const auto *label = question.findChild<QLabel *>();
        QVERIFY(!label->wordWrap() && label->alignment() == Qt::AlignCenter);
        QCOMPARE(label->text(), text);
        QCOMPARE(label->styleSheet(), QString("font-size:24px;color:white;font:normal"));
        QCOMPARE(label->geometry(), QRect(12, 6, 216, 100));
        QCOMPARE(question.styleSheet(),
                 QString("background-color:rgb(40,40,40);border-radius:12px"
                         "!important;outline:none"));
        const auto buttons = question.findChildren<QPushButton *>();
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(buttons.at(i)->geometry(), QRect(12 + 120 * i, 116, 96, 38));
            QCOMPARE(buttons.at(i)->styleSheet(),
                     QString("QPushButton{background-color:rgb(80,80,80);color:white;"
                             "border-radius:2px;border:none;outline:none}"));
        }
    }
};

QTEST_MAIN(TestFeedback)
#include "tst_feedback.moc"
