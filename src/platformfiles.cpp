#include "platformfiles.h"

#include <QFile>
#include <QFileInfo>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int maxReads = 5;

// A file that is open for as long as the object lives. Opening never waits, as it would for the
// other end of a FIFO.
class OpenFile
{
public:
    OpenFile(const QString &path, int flags)
        : file(open(QFile::encodeName(path).constData(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                    0666))
    {
        statusKnown = file >= 0 && fstat(file, &status) == 0;
    }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;
    ~OpenFile()
    {
        if (file >= 0)
            close(file);
    }

    int descriptor() const { return file; }
    quint64 inode() const { return statusKnown ? status.st_ino : 0; }
    qint64 size() const { return statusKnown ? status.st_size : -1; }

    // A status with times past 2038 does not fit a 32-bit unit's types; such a file is used as it
    // is.
    bool isUsable() const { return file >= 0 && (!statusKnown || S_ISREG(status.st_mode)); }

private:
    int file;
    bool statusKnown;
    struct stat status;
};

// Not QFile's readAll(): it asks for the size first, and cuts off a text that has grown since. A
// read may be short anywhere: only one that brings nothing, or the last of the file's size, ends
// it. Null where a read fails. A file of more bytes than `mostBytes` is read a little further.
QByteArray contentOf(const OpenFile &file, int mostBytes)
{
    QByteArray content("");
    char part[16384];
    do {
        const ssize_t size =
            TEMP_FAILURE_RETRY(pread(file.descriptor(), part, sizeof(part), content.size()));
        if (size < 0)
            return QByteArray();
        if (size == 0)
            break;
        content.append(part, static_cast<int>(size));
    } while (content.size() != file.size() && content.size() <= mostBytes);
    return content;
}

bool isSpecial(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() && !file.isFile();
}

bool holdsCopy(const QString &from, const QString &to)
{
    const OpenFile original(from, O_RDONLY);
    const OpenFile copy(to, O_RDONLY);
    if (!original.isUsable() || !copy.isUsable() || QFileInfo(to).isSymLink())
        return false;
    const QByteArray content = contentOf(original, largestFile);
    return !content.isNull() && content == contentOf(copy, largestFile);
}

} // namespace

QByteArray readFile(const QString &path, quint64 *inode)
{
    const OpenFile file(path, O_RDONLY);
    if (inode)
        *inode = file.descriptor() >= 0 ? file.inode() : inodeOf(path);
    if (!file.isUsable())
        return QByteArray();

    // While a text is written over in place, reading it can give half the old one and half the new.
    // Read again it differs then.
    QByteArray content = contentOf(file, largestFile);
    for (int reads = 1; content.size() <= largestFile && reads < maxReads; ++reads) {
        const QByteArray again = contentOf(file, largestFile);
        if (again == content)
            return content.replace('\r', "");
        content = again;
    }
    return QByteArray();
}

QByteArray readStart(const QString &path, int size)
{
    const OpenFile file(path, O_RDONLY);
    QByteArray content = file.isUsable() ? contentOf(file, size) : QByteArray();
    if (content.size() > size)
        content.truncate(content.lastIndexOf('\n', size - 1) + 1);
    return content.replace('\r', "");
}

quint64 inodeOf(const QString &path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
}

// Emptied only when all bytes are ready, so that the time without content is short.
void writeFile(const QString &path, const QByteArray &content)
{
    const OpenFile file(path, O_WRONLY | O_CREAT);
    if (!file.isUsable() || ftruncate(file.descriptor(), 0) != 0)
        return;
    int written = 0;
    while (written < content.size()) {
        const ssize_t size = TEMP_FAILURE_RETRY(
            write(file.descriptor(), content.constData() + written, content.size() - written));
        if (size <= 0)
            return;
        written += static_cast<int>(size);
    }
}

void flushToMedium(const QString &path)
{
    for (const QString &place : { path, QFileInfo(path).path() }) {
        const OpenFile file(place, O_RDONLY);
        if (file.descriptor() >= 0)
            fsync(file.descriptor());
    }
}

void copyFile(const QString &from, const QString &to)
{
    if (isSpecial(from) || isSpecial(to))
        return;
    const QString command = QString("cp -af %1 %2").arg(from, to);
    const int status = system(command.toLatin1().constData());
    Q_UNUSED(status)
}

void copyToNewFile(const QString &from, const QString &to)
{
    copyFile(from, to);
    if (!holdsCopy(from, to))
        QFile::remove(to);
}
