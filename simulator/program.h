#pragma once

#include <QString>

class Driver;
class QProcess;

// How the head unit's program has ended: its failure, or what the tap on save or No did that ended
// it. Its log is in its working folder.
QString outcomeOf(const QProcess &program, const Driver &driver);
