#pragma once

class Driver;

// A wheel drawn to look like one, its keys to press and hold, and what the driver's files hold.
// Gives the exit status once it is closed.
int showWheel(Driver *driver);
