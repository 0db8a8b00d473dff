#include "platformfiles.h"

#include <QFile>

#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int readAtOnce = 16384; // in bytes

// Unbuffered, so that the time in which the file is without its content ends with one write.
bool openAndWrite(QFile &file, const QByteArray &content)
{
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return false;
    file.write(content);
    return true;
}

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

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    openAndWrite(file, content);
}

void writeFileToMedium(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (openAndWrite(file, content))
        fsync(file.handle());
}

void copyFile(const QString &from, const QString &to)
{
    const QString command = QString("cp -af %1 %2").arg(from, to);
    const int status = system(command.toLatin1().constData());
    Q_UNUSED(status)
}
