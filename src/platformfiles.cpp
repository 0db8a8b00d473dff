#include "platformfiles.h"

#include <QFile>
#include <QFileInfo>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int readAtOnce = 16384; // in bytes

} // namespace

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QByteArray();

    // Not readAll(): it asks for the size first, and cuts off a text that has grown since.
    QByteArray content;
    for (QByteArray part = file.read(readAtOnce); !part.isEmpty(); part = file.read(readAtOnce))
        content += part;
    return content;
}

quint64 fileNumber(const QString &path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
}

// Unbuffered, so that the time in which the file is without its content ends with one write.
void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        file.write(content);
}

void flushToMedium(const QString &path)
{
    for (const QString &place : { path, QFileInfo(path).path() }) {
        const int file = open(QFile::encodeName(place).constData(), O_RDONLY);
        if (file < 0)
            continue;
        fsync(file);
        close(file);
    }
}

void copyFile(const QString &from, const QString &to)
{
    const QString command = QString("cp -af %1 %2").arg(from, to);
    const int status = system(command.toLatin1().constData());
    Q_UNUSED(status)
}
