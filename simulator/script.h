#pragma once

#include "driver.h"

#include <QString>

class QTextStream;

QString scriptHelp();

// Does the lines of a file, or of standard input for "-", each as soon as it is complete, and
// answers "ok" to each. Gives the exit status: 1 at the first line that is wrong or fails.
int runScript(const QString &name, Driver *driver, QTextStream *output, QTextStream *errors);
