#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

class Driver;

// The program of the head unit as a child process, run in the unit's root folder. Does nothing
// without a command, or while it runs.
void startProgram(const QStringList &command, const QString &root, QProcess *program);

bool hasFailed(const QProcess &program);

// Its failure, or what the tap on save or No did that ended it.
QString outcomeOf(const QProcess &program, const Driver &driver);
