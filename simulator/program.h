#pragma once

#include <QString>

class Driver;
class QProcess;

// Did not start, was killed, or ended by itself with another exit code than 0.
bool hasFailed(const QProcess &program);

// How the head unit's program has ended: its failure, or what the tap on save or No did that ended
// it. Its log is in its working folder.
QString outcomeOf(const QProcess &program, const Driver &driver);
