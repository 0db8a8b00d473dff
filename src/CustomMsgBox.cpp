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

int scaled(int length, double factor)
{
    return static_cast<int>(length * factor);
}

} // namespace

CustomMsgBox::CustomMsgBox(QWidget *, QString text) : QDialog(nullptr)
{
    const QRect available = availableScreen();
    qDebug("[msg_print] %d,%d", available.width(), available.height());

    resize(dialogWidth, dialogHeight);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setStyleSheet(dialogStyle);
    setGeometry(scaled(available.width() - dialogWidth, 0.5),
                scaled(available.height() - dialogHeight, 0.5), dialogWidth, dialogHeight);

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
    const int textHeight = scaled(height(), 0.7);
    const int buttonsHeight = scaled(height(), 0.3);
    const int halfWidth = scaled(width(), 0.5);

    const QSize label(scaled(width(), 0.9), scaled(textHeight, 0.9));
    msgLabel->setStyleSheet(labelStyle);
    msgLabel->setAlignment(Qt::AlignCenter);
    msgLabel->setGeometry(scaled(width() - label.width(), 0.5),
                          scaled(textHeight - label.height(), 0.5), label.width(), label.height());

    double x = halfWidth * 0.1;
    for (QPushButton *button : { btnYes, btnNo }) {
        button->setGeometry(static_cast<int>(x), textHeight + scaled(buttonsHeight, 0.1),
                            scaled(halfWidth, 0.8), scaled(buttonsHeight, 0.8));
        button->setStyleSheet(buttonStyle);
        x += width() * 0.5;
    }
}
