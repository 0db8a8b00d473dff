#include "CustomMsgBox.h"
#include "headunit.h"

#include <QApplication>
#include <QPushButton>

class TestQuestion : public QObject
{
    Q_OBJECT

private slots:
    void theQuestionIsInTheMiddleOfTheScreen()
    {
        const HeadUnit unit;
        setScreen({ 1024, 600 });
        QWidget owner;
        const CustomMsgBox question(&owner, "Delete data?");
        QVERIFY(!question.parent());
        QCOMPARE(question.geometry(), QRect(392, 220, 240, 160));
        QCOMPARE(question.windowFlags(), Qt::Dialog | Qt::FramelessWindowHint);
        QCOMPARE(
            question.styleSheet(),
            QString("background-color:rgb(40,40,40);border-radius:12px!important;outline:none"));
        QCOMPARE(takeLog(), QStringList("[msg_print] 1024,600"));
    }

    void theTextIsAboveTwoButtons()
    {
        const HeadUnit unit;
        const CustomMsgBox question(nullptr, "A text that is far too wide for the label");
        const auto *label = question.findChild<QLabel *>();
        QCOMPARE(label->text(), QString("A text that is far too wide for the label"));
        QCOMPARE(label->geometry(), QRect(12, 6, 216, 100));
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(label->styleSheet(), QString("font-size:24px;color:white;font:normal"));
        QVERIFY(!label->wordWrap());
        const auto buttons = question.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 2);
        QCOMPARE(buttons.at(0)->text(), QString("Yes"));
        QCOMPARE(buttons.at(0)->geometry(), QRect(12, 116, 96, 38));
        QCOMPARE(buttons.at(1)->text(), QString("No"));
        QCOMPARE(buttons.at(1)->geometry(), QRect(132, 116, 96, 38));
        for (const QPushButton *button : buttons)
            QCOMPARE(button->styleSheet(),
                     QString("QPushButton{background-color:rgb(80,80,80);color:white;"
                             "border-radius:2px;border:none;outline:none}"));
    }

    void theSlotsAnswer()
    {
        const HeadUnit unit;
        CustomMsgBox question(nullptr, "Delete data?");
        QVERIFY(QMetaObject::invokeMethod(&question, "slotsYesClick"));
        QCOMPARE(question.result(), 1);
        QVERIFY(QMetaObject::invokeMethod(&question, "slotsNoClick"));
        QCOMPARE(question.result(), 0);
    }
};

QTEST_MAIN(TestQuestion)
#include "tst_question.moc"
