#pragma once

#include <QRect>

// The area of the default screen that no taskbar takes, in pixels.
QRect availableScreen();
