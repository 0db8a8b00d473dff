#pragma once

#include <QFileSystemWatcher>
#include <QString>

// Watches one file by its name, and knows which file that is.
class FileWatch : public QFileSystemWatcher
{
public:
    using QFileSystemWatcher::QFileSystemWatcher;

    void watch(const QString &path);

    // Where a new file was renamed over the old one, the watch stays with the old one, and goes
    // when nobody holds that any more. `inode` is that of the file that has the name now, 0 if
    // unknown. True if it was not watched; it is from now on, and changes until now brought no
    // signal.
    bool follow(const QString &path, quint64 inode);

private:
    quint64 watchedInode = 0;
};
