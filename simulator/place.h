#pragma once

#include <QRect>
#include <QSize>

constexpr int wheelSide = 480;

// Where the wheel's window lies, frame included: beside the head unit's window, which has the same
// frame and is in the free area's first corner. It is smaller where there is less room, and where
// that is too small, over the head unit's instructions.
QRect placeBeside(const QSize &headUnit, const QRect &freeArea, const QSize &frame);
