#pragma once

#include <QList>
#include <QStringList>

class QIODevice;

// The on-screen keys in the order of the grid: three lists of equal length.
struct Catalogue
{
    QStringList names;
    QList<int> codes;
    QStringList iconPaths;
};

// Reads "name code icon" rows from an open device. A comment has "#" as its very first character;
// a row of fewer than three fields is skipped, a code that is no number counts as 0.
Catalogue readCatalogue(QIODevice &file);
