#include "place.h"

namespace {

constexpr int smallestSide = 240;

}

QRect placeBeside(const QSize &headUnit, const QRect &freeArea, const QSize &frame)
{
    const QSize room = freeArea.size() - frame;
    const QSize rest = room - headUnit - frame;
    const int right = qMin(rest.width(), room.height());
    const int below = qMin(rest.height(), room.width());
    const bool toTheRight = right >= qMin(below, wheelSide);
    const int side = qBound(smallestSide, toTheRight ? right : below, wheelSide);
    QRect place(freeArea.topLeft(), QSize(side, side) + frame);
    if (toTheRight)
        place.moveLeft(freeArea.left() + headUnit.width() + frame.width());
    else
        place.moveTop(freeArea.top() + headUnit.height() + frame.height());
    place.moveRight(qMin(place.right(), freeArea.right()));
    place.moveBottom(qMin(place.bottom(), freeArea.bottom()));
    return place;
}
