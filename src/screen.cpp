#include "screen.h"

#include <QApplication>
#include <QDesktopWidget>

// Qt deprecated the call later than 5.3; its successors name another screen where there are two.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

QRect availableScreen()
{
    return QApplication::desktop()->availableGeometry(-1);
}
