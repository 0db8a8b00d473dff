#include "androidtoast.h"

#include "timings.h"

#include <QColor>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScreen>
#include <QSize>
#include <QTimer>

namespace {

constexpr int labelWidth = 160;
constexpr int labelHeight = 80;
constexpr int bottomMargin = 10;

constexpr const char *levelStyles[] = {
    "QLabel{background-color:white; font-size:22px; color:black; border-radius: 4px; font:bold}",
    "QLabel{background-color:white; font-size:22px; color:yellow; border-radius: 4px; font:bold}",
    "QLabel{background-color:white; font-size:22px; color:red; border-radius: 4px; font:bold}",
};
constexpr int levelCount = sizeof(levelStyles) / sizeof(levelStyles[0]);

} // namespace

bool AndroidToast::isShowToast = false;

AndroidToast::AndroidToast(QWidget *parent) : QWidget(parent), label(new QLabel(this))
{
    label->setFixedSize(labelWidth, labelHeight);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(levelStyles[0]);
    setWindowFlags(windowFlags() | Qt::Tool | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
}

void AndroidToast::showTip(int level, const QString &text, QWidget *parent)
{
    isShowToast = true;
    auto *toast = new AndroidToast(parent);
    toast->setWindowFlags(toast->windowFlags() | Qt::WindowStaysOnTopHint);
    toast->setText(level, text);
    toast->adjustSize();
    const QSize screen = QGuiApplication::primaryScreen()->size();
    toast->move((screen.width() - toast->width()) / 2,
                screen.height() - toast->height() - bottomMargin);
    toast->startAnimation(Timings::noticeHold);
}

void AndroidToast::setText(int level, const QString &text)
{
    if (level >= 0 && level < levelCount)
        label->setStyleSheet(levelStyles[level]);
    label->setText(text);
}

void AndroidToast::startAnimation(int msec)
{
    fade(0.0, 1.0);
    show();
    QTimer::singleShot(msec, this, SLOT(finishAnimation()));
}

void AndroidToast::finishAnimation()
{
    connect(fade(1.0, 0.0), SIGNAL(finished()), this, SLOT(closeAnimation()));
}

void AndroidToast::closeAnimation()
{
    close();
    deleteLater();
    isShowToast = false;
}

void AndroidToast::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 0));
    painter.drawRect(rect());
}

QPropertyAnimation *AndroidToast::fade(qreal from, qreal to)
{
    auto *animation = new QPropertyAnimation(this, "windowOpacity", this);
    animation->setDuration(Timings::noticeFade);
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->start();
    return animation;
}
