#include "screen.h"

#include <QApplication>
#include <QDesktopWidget>

// Later versions of Qt deprecate QDesktopWidget. Its replacement may return another screen.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

QRect availableScreen()
{
    return QApplication::desktop()->availableGeometry(-1);
}
