#pragma once

#include <QByteArray>
#include <QString>

// Reads a file or a pipe line by line. The event loop runs while the next line is not there yet.
class LineReader
{
public:
    explicit LineReader(int descriptor) : descriptor(descriptor) { }

    bool next(QString *line); // false at the end

private:
    bool readMore();

    int descriptor;
    QByteArray buffer;
};
