#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QPaintEvent;
class QPropertyAnimation;

// A short notice at the bottom of the screen that fades in, stays, fades out and deletes itself.
// Notices are not queued: while isShowToast is true, a caller must not show another one.
class AndroidToast : public QWidget
{
    Q_OBJECT

public:
    enum Level { Black, Yellow, Red }; // the colour of the text

    explicit AndroidToast(QWidget *parent);

    // Shows `text` in the colour of the level, or in black if the level is unknown. Returns
    // immediately; the notice owns itself.
    static void showTip(int level, const QString &text, QWidget *parent);

    void setText(int level, const QString &text);

    // Fades in now, and starts to fade out after `msec` milliseconds.
    void startAnimation(int msec);

    static bool isShowToast;

protected:
    void paintEvent(QPaintEvent *event) override;

private slots:
    void finishAnimation();
    void closeAnimation();

private:
    QPropertyAnimation *fade(qreal from, qreal to);

    QLabel *label;
};
