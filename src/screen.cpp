#include "screen.h"

#include <QApplication>
#include <QDesktopWidget>

// Qt deprecated the call after 5.3. Its successor may choose another screen if there are two.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

QRect availableScreen()
{
    return QApplication::desktop()->availableGeometry(-1);
}
