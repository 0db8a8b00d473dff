#pragma once

#include <QByteArray>
#include <QString>

// Reading, writing and copying the platform's files. Failures are not reported: the callers go on
// whatever happens.

// The whole file without its carriage returns; empty where it can't be read or has more than 128
// MB. A text that changes while it is read is read again, at most a few times.
QByteArray readFile(const QString &path);

// What tells a file from one renamed over it; 0 where that is not known.
quint64 fileNumber(const QString &path);

// Replaces the content in place; nothing happens where the file can't be opened.
void writeFile(const QString &path, const QByteArray &content);

// Returns when the medium has the file, and the folder its name.
void flushToMedium(const QString &path);

// Copies with attributes through the shell. The paths must need no quoting.
void copyFile(const QString &from, const QString &to);
