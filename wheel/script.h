#pragma once

#include "driver.h"

#include <QString>

class QIODevice;
class QTextStream;

// Executes the input's lines of press, decode and flag, each as soon as it is complete, and answers
// each with "ok". Stops at the first that fails. Returns an error message, empty on success.
QString runScript(QIODevice *input, Driver *driver, QTextStream *output);
