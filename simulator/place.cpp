#include "place.h"

#include <QPoint>
#include <QtGlobal>

constexpr int smallestSide = 240;

QRect placeBeside(const QSize &headUnit, const QRect &freeArea, const QSize &frame)
{
    const QSize room = freeArea.size() - frame;
    const int beside = headUnit.width() + frame.width();
    const int side = qBound(smallestSide, qMin(room.width() - beside, room.height()), wheelSide);
    const QPoint offset(qMin(beside, room.width() - side), 0);
    return { freeArea.topLeft() + offset, QSize(side, side) + frame };
}
