#include "platformfiles.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int maxReads = 5;

bool isSpecial(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() && !file.isFile();
}

bool holdsCopy(const QString &from, const QString &to)
{
    const QFileInfo copy(to);
    return copy.isSymLink()
        || (copy.isFile() && copy.size() == QFileInfo(from).size()
            && readFile(from) == readFile(to));
}

} // namespace

// A text that is rewritten while it is being read can come out half old and half new. The file is
// therefore read until two results in a row are equal.
QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (isSpecial(path) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return QByteArray();

    QByteArray content;
    for (int reads = 0; file.size() <= maxFileSize && reads < maxReads; ++reads) {
        file.seek(0);
        const QByteArray again = file.readAll();
        if (reads > 0 && again == content)
            return content;
        content = again;
    }
    return QByteArray();
}

QString readText(const QString &path)
{
    return QString::fromUtf8(readFile(path).replace('\r', "").constData());
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!isSpecial(path) && file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write(content);
}

// Uses open(), because QFile can't open the directory, which must be flushed too.
void flushToMedium(const QString &path)
{
    for (const QString &place : { path, QFileInfo(path).path() }) {
        const int descriptor =
            open(QFile::encodeName(place).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (descriptor < 0)
            continue;
        fsync(descriptor);
        close(descriptor);
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
