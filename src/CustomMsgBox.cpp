#include "CustomMsgBox.h"

#include "screen.h"

#include <QDebug>
#include <QLabel>
#include <QPushButton>
#include <QRect>

namespace {

constexpr int dialogWidth = 240;
constexpr int dialogHeight = 160;

constexpr char dialogStyle[] =
    "background-color:rgb(40,40,40);border-radius:12px!important;outline:none";
constexpr char labelStyle[] = "font-size:24px;color:white;font:normal";
constexpr char buttonStyle[] = "QPushButton{background-color:rgb(80,80,80);color:white;"
                               "border-radius:2px;border:none;outline:none}";

} // namespace

CustomMsgBox::CustomMsgBox(QWidget *, QString text) : QDialog(nullptr)
{
    const QRect available = availableScreen();
    qDebug("[msg_print] %d,%d", available.width(), available.height());

    resize(dialogWidth, dialogHeight);
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setStyleSheet(dialogStyle);
    setGeometry(static_cast<int>((available.width() - dialogWidth) * 0.5),
                static_cast<int>((available.height() - dialogHeight) * 0.5), dialogWidth,
                dialogHeight);

    msgLabel = new QLabel(this);
    btnYes = new QPushButton("Yes", this);
    btnNo = new QPushButton("No", this);
    connect(btnYes, SIGNAL(clicked()), this, SLOT(slotsYesClick()));
    connect(btnNo, SIGNAL(clicked()), this, SLOT(slotsNoClick()));
    placeChildren();
    msgLabel->setText(text);
}

void CustomMsgBox::slotsYesClick()
{
    accept();
}

void CustomMsgBox::slotsNoClick()
{
    reject();
}

// Every product is cut to whole pixels on its own.
void CustomMsgBox::placeChildren()
{
    const int textHeight = static_cast<int>(height() * 0.7);
    const int buttonsHeight = static_cast<int>(height() * 0.3);
    const int halfWidth = static_cast<int>(width() * 0.5);

    const int labelWidth = static_cast<int>(width() * 0.9);
    const int labelHeight = static_cast<int>(textHeight * 0.9);
    msgLabel->setStyleSheet(labelStyle);
    msgLabel->setAlignment(Qt::AlignCenter);
    msgLabel->setGeometry(static_cast<int>((width() - labelWidth) * 0.5),
                          static_cast<int>((textHeight - labelHeight) * 0.5), labelWidth,
                          labelHeight);

    const int buttonY = static_cast<int>(textHeight + buttonsHeight * 0.1);
    const int buttonWidth = static_cast<int>(halfWidth * 0.8);
    const int buttonHeight = static_cast<int>(buttonsHeight * 0.8);
    btnYes->setGeometry(static_cast<int>(halfWidth * 0.1), buttonY, buttonWidth, buttonHeight);
    btnNo->setGeometry(static_cast<int>(halfWidth * 0.1 + width() * 0.5), buttonY, buttonWidth,
                       buttonHeight);
    btnYes->setStyleSheet(buttonStyle);
    btnNo->setStyleSheet(buttonStyle);
}
