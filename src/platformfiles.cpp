#include "platformfiles.h"

#include <QFile>
#include <QFileInfo>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int looksAtMost = 5;
constexpr int sizeAtMost = 128 << 20; // in bytes; far more than the platform's files have

// Not QFile's readAll(): it asks for the size first, and cuts off a text that has grown since.
QByteArray contentOf(int file)
{
    QByteArray content;
    char part[16384];
    ssize_t size = 0;
    do {
        size = pread(file, part, sizeof(part), content.size());
        if (size > 0)
            content.append(part, static_cast<int>(size));
    } while (size == sizeof(part) && content.size() <= sizeAtMost);
    return content.size() <= sizeAtMost ? content : QByteArray();
}

} // namespace

QByteArray readFile(const QString &path)
{
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return QByteArray();

    // While a text is written over in place, a look at it can find half the old one and half the
    // new. The next look differs then.
    QByteArray content = contentOf(file);
    for (int looks = 1; looks < looksAtMost; ++looks) {
        const QByteArray again = contentOf(file);
        if (again == content)
            break;
        content = again;
    }
    close(file);
    return content.replace('\r', "");
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
