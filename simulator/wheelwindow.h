#pragma once

#include "driver.h"
#include "wheelpicture.h"

#include <QWidget>

// The wheel with its keys to press and hold, and what the driver's files hold.
class WheelWindow : public QWidget
{
    Q_OBJECT

public:
    WheelWindow(Driver *driver, const Wheel &wheel);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private slots:
    void onWrote(const QString &reading, int decodedCode);
    void onFailed(const QString &fault);
    void readFlag();

private:
    Driver *driver;
    const Wheel wheel;
    WheelPicture picture;
    WheelState state;
    QTimer flagTimer;
};
