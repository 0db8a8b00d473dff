#pragma once

#include <QRect>
#include <QSize>

constexpr int wheelSide = 480;

// Where the wheel's window lies, frame included: beside the head unit's window in the free area's
// first corner or below it, smaller where the room is.
QRect placeBeside(const QSize &headUnit, const QRect &freeArea, const QSize &frame);
