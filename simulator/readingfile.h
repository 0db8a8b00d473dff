#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>

// The key line, 2 or 3, and the values of the channels 1 to 3.
using Measurement = std::array<int, 4>;

QByteArray payloadOf(const Measurement &measurement);
QByteArray readingText(const QByteArray &payload); // with its count

// A text in pieces is cut before its last field, and nothing waits between the two writes.
enum class Way { Truncate, Overwrite, Rename, Pieces };
QStringList wayNames(); // in that order

// Gives whether the driver's file holds the text now.
bool writeReading(const QString &path, const QByteArray &text, Way way);
