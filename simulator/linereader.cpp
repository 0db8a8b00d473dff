#include "linereader.h"

#include <QEventLoop>
#include <QSocketNotifier>

#include <unistd.h>

bool LineReader::next(QString *line)
{
    while (!buffer.contains('\n') && readMore()) { }
    if (buffer.isEmpty())
        return false;
    const int end = buffer.indexOf('\n');
    const int length = end == -1 ? buffer.size() : end + 1; // the last line may lack its end
    *line = QString::fromUtf8(buffer.left(length));
    buffer.remove(0, length);
    return true;
}

bool LineReader::readMore()
{
    QEventLoop loop;
    QSocketNotifier notifier(descriptor, QSocketNotifier::Read);
    QObject::connect(&notifier, SIGNAL(activated(int)), &loop, SLOT(quit()));
    loop.exec();

    char part[4096];
    const ssize_t size = read(descriptor, part, sizeof part);
    if (size <= 0)
        return false;
    buffer.append(part, static_cast<int>(size));
    return true;
}
