#pragma once

#include <QByteArray>
#include <QString>

// Functions to read, write and copy the platform's files. A file that is not a regular file, for
// example a FIFO, could block the program. Such a file is treated as empty, and is neither written
// nor copied. The functions report no failures, because the callers continue in any case.

constexpr int maxFileSize = 16 << 20; // in bytes; real files have only a few thousand bytes

// Returns the whole file. The result is empty if the file can't be read, is larger than
// maxFileSize, or keeps changing.
QByteArray readFile(const QString &path);

// Returns the file up to its first NUL byte, decoded as UTF-8, without carriage returns.
QString readText(const QString &path);

// Replaces the content in place, and creates the file if it is missing.
void writeFile(const QString &path, const QByteArray &content);

// Writes the file and its directory entry to the storage medium, and waits until that is done.
void flushToMedium(const QString &path);

// Copies a file and its attributes with a shell command. The paths must not contain blanks or other
// characters that the shell interprets.
void copyFile(const QString &from, const QString &to);

// Copies to a file that does not exist yet. An incomplete copy is removed.
void copyToNewFile(const QString &from, const QString &to);
