#pragma once

#include "driver.h"

#include <QString>

class QIODevice;
class QTextStream;

// Executes each line of the input as soon as it is complete and answers it with "ok", up to the
// first that fails. Returns an error message, empty on success.
QString runScript(QIODevice *input, Driver *driver, QTextStream *output);
