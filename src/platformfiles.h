#pragma once

#include <QByteArray>
#include <QString>

// Reading, writing and copying the platform's files. No function waits for a FIFO or a device:
// anything but a regular file reads as empty and is neither written nor copied. Failures are not
// reported, because the callers go on in any case.

constexpr int maxFileSize = 16 << 20; // in bytes; the platform's files have a few thousand

// The whole file. Empty if it can't be read, is larger than maxFileSize, or still changes after
// several reads.
QByteArray readFile(const QString &path);

// The file in text mode: decoded as UTF-8 up to the first NUL byte, without carriage returns.
QString readText(const QString &path);

// Replaces the content in place, and creates the file if it is missing.
void writeFile(const QString &path, const QByteArray &content);

// Waits until the file and its directory entry are written to the medium.
void flushToMedium(const QString &path);

// Copies with attributes through the shell. The paths must not need quoting.
void copyFile(const QString &from, const QString &to);

// Does the same for a file that does not exist yet, and removes an incomplete copy.
void copyToNewFile(const QString &from, const QString &to);
