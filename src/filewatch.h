#pragma once

#include <QFileSystemWatcher>
#include <QString>

// Watches one file by its name, and knows which file that is.
class FileWatch : public QFileSystemWatcher
{
public:
    using QFileSystemWatcher::QFileSystemWatcher;

    void watch(const QString &path);

    // True if the file that has the name now, with this inode (0 if unknown), was not watched: its
    // changes brought no signal until now, and do from now on. A watch stays with the old file
    // where a new one is renamed over it, and goes when nobody holds the old one any more.
    bool follow(const QString &path, quint64 inode);

private:
    quint64 watchedInode = 0;
};
