#pragma once

#include <QDialog>
#include <QString>

class QLabel;
class QPushButton;

// A frameless modal question. exec() returns 1 for Yes, and 0 for No or the Escape key.
class CustomMsgBox : public QDialog
{
    Q_OBJECT

public:
    // The first argument is ignored: the dialog is always a top-level window.
    CustomMsgBox(QWidget *, QString text);

public slots:
    void slotsYesClick() { accept(); }
    void slotsNoClick() { reject(); }

private:
    void placeChildren();

    QLabel *msgLabel;
    QPushButton *btnYes;
    QPushButton *btnNo;
};
