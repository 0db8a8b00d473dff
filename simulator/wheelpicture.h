#pragma once

#include "wheel.h"

#include <QRect>

class QPainter;

// What is shown beside the wheel itself.
struct WheelState
{
    int heldKey = -1; // index into the wheel's keys
    QByteArray flag; // content of the flag file
    QString reading; // the last one written
    QString decoded; // name of the function, "none", or empty while learning
};

// A wheel drawn to look like one: the keys of line 2 on the left spoke, those of line 3 on the
// right one.
class WheelPicture
{
public:
    explicit WheelPicture(const Wheel &wheel);

    static QSize size() { return { 480, 480 }; }
    int keyAt(const QPoint &point) const; // -1 where no pad is
    void paint(QPainter *painter, const WheelState &state) const;

private:
    void placePads(int line);
    void paintBody(QPainter *painter) const;
    void paintDisplay(QPainter *painter, const WheelState &state) const;
    void paintHub(QPainter *painter, const WheelState &state) const;
    void paintPad(QPainter *painter, int key, const WheelState &state) const;

    const Wheel wheel;
    QVector<QRect> pads; // one for each key
};
