#pragma once

#include <QRect>

// The area of the default screen that no panel takes, in pixels.
QRect availableScreen();
