#include "readingfile.h"

#include <QFile>
#include <QIODevice>

#include <cstdio>

QByteArray payloadOf(const Measurement &measurement)
{
    const QString payload = QString("%1,%2,%3,%4").arg(measurement[0]).arg(measurement[1]);
    return payload.arg(measurement[2]).arg(measurement[3]).toLatin1();
}

QByteArray readingText(const QByteArray &payload)
{
    return QByteArray::number(payload.size()) + ':' + payload;
}

QStringList wayNames()
{
    return { "truncate", "overwrite", "rename", "pieces" };
}

bool writeReading(const QString &path, const QByteArray &text, Way way)
{
    // Opened for reading too, a file keeps what a longer text has left behind this one. A file
    // renamed to its own name stays as it is.
    const auto mode = way == Way::Overwrite ? QIODevice::ReadWrite : QIODevice::WriteOnly;
    const int cut = way == Way::Pieces ? qMax(0, text.lastIndexOf(',')) : 0;
    const QString newPath = way == Way::Rename ? path + ".new" : path;
    QFile file(newPath);
    return file.open(mode | QIODevice::Unbuffered) && (cut == 0 || file.write(text, cut) == cut)
        && file.write(text.mid(cut)) == text.size() - cut
        && std::rename(QFile::encodeName(newPath), QFile::encodeName(path)) == 0;
}
