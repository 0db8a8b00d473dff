#pragma once

#include <QRect>

// Returns the area of the default screen without taskbars, in pixels.
QRect availableScreen();
