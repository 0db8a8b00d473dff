#pragma once

#include <QByteArray>
#include <QString>

// Reading, writing and copying the platform's files. None of it blocks: what is no regular file
// reads as empty, and is neither written nor copied. Failures are not reported, since the callers
// go on whatever happens.

constexpr int largestFile = 128 << 20; // in bytes; far more than the platform's files have

// The whole file without its carriage returns. Empty where it can't be read, has more than
// `largestFile` bytes, or still changes after it was read a few times: whoever changes it is not
// done. `inode` tells the file from one renamed over it; 0 where that is not known.
QByteArray readFile(const QString &path, quint64 *inode = nullptr);

// The whole lines within the first `size` bytes, likewise but read only once.
QByteArray readStart(const QString &path, int size);

// 0 where it is not known.
quint64 inodeOf(const QString &path);

// Replaces the content in place; nothing happens where the file can't be opened.
void writeFile(const QString &path, const QByteArray &content);

// Returns when the medium has the file, and the folder its name.
void flushToMedium(const QString &path);

// Copies with attributes through the shell. The paths must need no quoting.
void copyFile(const QString &from, const QString &to);

// Copies likewise to a file that does not exist yet, and leaves no part of a copy behind.
void copyToNewFile(const QString &from, const QString &to);
