#pragma once

#include <QSize>
#include <QStringList>

class Driver;

// A wheel drawn to look like one, its keys to press and hold, and what the driver's files hold.
// It lies beside the window of a head unit's screen of that size, where there is one. The command
// is the head unit's program, if any: started in its root folder, and again by the user. Gives the
// exit status once the wheel is closed or the program fails.
int showWheel(Driver *driver, const QSize &headUnit, const QStringList &command);
