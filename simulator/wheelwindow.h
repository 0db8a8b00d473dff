#pragma once

#include <QSize>

class Driver;
class Program;

// A wheel drawn to look like one, its keys to press and hold, and what the driver's files hold.
// It lies beside the window of a head unit's screen of that size, where there is one. The program,
// if any, is started, and again by the user. Gives the exit status once the wheel is closed or the
// program fails.
int showWheel(Driver *driver, Program *program, const QSize &headUnit);
