#include "filewatch.h"

#include "platformfiles.h"

#include <QStringList>

// In this order, a file that comes in between is taken for another one at the next signal.
void FileWatch::watch(const QString &path)
{
    watchedInode = inodeOf(path);
    addPath(path);
}

// A new watch wakes the program once more, so the same file is not watched again.
bool FileWatch::follow(const QString &path, quint64 inode)
{
    if (inode != 0 && inode == watchedInode && files().contains(path))
        return false;
    removePath(path);
    watch(path);
    return true;
}
