#include "CustomMsgBox.h"

#include "screen.h"

#include <QDebug>
#include <QLabel>
#include <QPushButton>
#include <QRect>
#include <QSize>

namespace {

constexpr int dialogWidth = 240;
constexpr int dialogHeight = 160;

constexpr char dialogStyle[] =
    "background-color:rgb(40,40,40);border-radius:12px!important;outline:none";
constexpr char labelStyle[] = "font-size:24px;color:white;font:normal";
constexpr char buttonStyle[] = "QPushButton{background-color:rgb(80,80,80);color:white;"
                               "border-radius:2px;border:none;outline:none}";

// Returns a share of a length, truncated to whole pixels.
int part(int whole, double share)
{
    return static_cast<int>(whole * share);
}

} // namespace

CustomMsgBox::CustomMsgBox(QWidget *, QString text) : QDialog(nullptr)
{
    const QRect available = availableScreen();
    qDebug("[msg_print] %d,%d", available.width(), available.height());

    resize(dialogWidth, dialogHeight);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setStyleSheet(dialogStyle);
    setGeometry(part(available.width() - dialogWidth, 0.5),
                part(available.height() - dialogHeight, 0.5), dialogWidth, dialogHeight);

    msgLabel = new QLabel(this);
    btnYes = new QPushButton("Yes", this);
    btnNo = new QPushButton("No", this);
    connect(btnYes, SIGNAL(clicked()), this, SLOT(slotsYesClick()));
    connect(btnNo, SIGNAL(clicked()), this, SLOT(slotsNoClick()));
    placeChildren();
    msgLabel->setText(text);
}

void CustomMsgBox::placeChildren()
{
    const int textHeight = part(height(), 0.7);
    const int buttonsHeight = part(height(), 0.3);
    const int halfWidth = part(width(), 0.5);

    const QSize label(part(width(), 0.9), part(textHeight, 0.9));
    msgLabel->setStyleSheet(labelStyle);
    msgLabel->setAlignment(Qt::AlignCenter);
    msgLabel->setGeometry(part(width() - label.width(), 0.5),
                          part(textHeight - label.height(), 0.5), label.width(), label.height());

    double x = halfWidth * 0.1;
    for (QPushButton *button : { btnYes, btnNo }) {
        button->setGeometry(static_cast<int>(x), textHeight + part(buttonsHeight, 0.1),
                            part(halfWidth, 0.8), part(buttonsHeight, 0.8));
        button->setStyleSheet(buttonStyle);
        x += width() * 0.5;
    }
}
