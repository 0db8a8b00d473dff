#include "CustomMsgBox.h"
#include "headunit.h"

#include <QPushButton>

class TestQuestion : public QObject
{
    Q_OBJECT

private slots:
    void theQuestionIsInTheMiddleOfTheScreen()
    {
        const HeadUnit unit;
        screenSize = { 1024, 600 };
        QWidget owner;
        const CustomMsgBox question(&owner, "A text that is too wide for the label");
        QVERIFY(!question.parent());
        QCOMPARE(question.geometry(), QRect(392, 220, 240, 160));
        QCOMPARE(question.windowFlags(), Qt::Dialog | Qt::FramelessWindowHint);
        QCOMPARE(
            question.styleSheet(),
            QString("background-color:rgb(40,40,40);border-radius:12px!important;outline:none"));

        const auto *label = question.findChild<QLabel *>();
        QCOMPARE(label->text(), QString("A text that is too wide for the label"));
        QCOMPARE(label->geometry(), QRect(12, 6, 216, 100));
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(label->styleSheet(), QString("font-size:24px;color:white;font:normal"));
    }

    void theButtonsAreYesAndNo()
    {
        const HeadUnit unit;
        CustomMsgBox question(nullptr, "Delete data?");
        const QString texts[] = { "Yes", "No" };
        for (int i = 0; i < 2; ++i) {
            QPushButton *button = question.findChildren<QPushButton *>().value(i);
            QCOMPARE(button->text(), texts[i]);
            QCOMPARE(button->geometry(), QRect(12 + 120 * i, 116, 96, 38));
            QCOMPARE(button->styleSheet(),
                     QString("QPushButton{background-color:rgb(80,80,80);color:white;"
                             "border-radius:2px;border:none;outline:none}"));
            button->click();
            QCOMPARE(question.result(), 1 - i);
        }
        question.setResult(QDialog::Accepted);
        QTest::keyClick(&question, Qt::Key_Escape);
        QCOMPARE(question.result(), 0);
    }
};

QTEST_MAIN(TestQuestion)
#include "tst_question.moc"
