#pragma once

#include "driver.h"

#include <QString>

class QTextStream;

// Does the lines of a file, or of standard input for "-", each as soon as it is complete, and
// answers "ok" to each. Gives what is wrong with the first one that fails, else nothing.
QString runScript(const QString &name, Driver *driver, QTextStream *output);
