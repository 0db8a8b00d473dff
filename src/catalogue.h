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

// Reads rows of "name code icon" from an open device. A line that starts with "#" is a comment. A
// row with fewer than three fields is skipped. A code that is not a decimal number becomes 0.
Catalogue readCatalogue(QIODevice &file);
