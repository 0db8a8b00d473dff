#pragma once

#include <QRect>

// The part of the default screen that no panel takes, in pixels.
QRect availableScreen();
