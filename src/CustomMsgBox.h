#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QPushButton;

// A frameless modal question. exec() gives 1 for Yes, 0 for No and for the Escape key.
class CustomMsgBox : public QDialog
{
    Q_OBJECT

public:
    // The first argument is not used: the dialog is always a top-level window.
    CustomMsgBox(QWidget *, QString text);

public slots:
    void slotsYesClick();
    void slotsNoClick();

private:
    void placeChildren();

    QLabel *msgLabel;
    QPushButton *btnYes;
    QPushButton *btnNo;
};
