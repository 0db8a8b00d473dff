#include "keymainwindow.h"

#include "configuration.h"
#include "platform.h"
#include "platformfiles.h"
#include "reading.h"

#include <QByteArray>
#include <QDebug>
#include <QFile>

// The "0" is flushed. Otherwise a power failure could leave "1" in the file.
void KeyMainWindow::writeLearnFlag(bool on)
{
    if (!QFile::exists(Platform::flag))
        return;
    writeFile(Platform::flag, on ? "1" : "0");
    if (!on)
        flushToMedium(Platform::flag);
}

void KeyMainWindow::writeClearFlag()
{
    if (QFile::exists(Platform::flag))
        writeFile(Platform::flag, "11");
}

int KeyMainWindow::loadSwcKeys()
{
    if (!QFile::exists(Platform::configuration))
        return -1;

    mapSwcKeys.clear();
    const QJsonObject configuration = parseConfiguration(readText(Platform::configuration));
    for (const char *group : { line2Group, line3Group }) {
        if (configuration.contains(group))
            setDirectionRoad(configuration, mapSwcKeys, group);
    }
    return mapSwcKeys.size();
}

void KeyMainWindow::setDirectionRoad(QJsonObject configuration, QMap<int, QString> &learnedKeys,
                                     QString group)
{
    for (const LoadedKey &key : keysOfGroup(configuration, group)) {
        qDebug() << key.code << " " << key.record;
        learnedKeys.insert(key.code, key.record);
    }
}

QMap<int, int> KeyMainWindow::insertSwcKey1Flag()
{
    const QMap<int, int> selection = selectChannel(mapSwcKeys, keyLine2);
    if (!selection.isEmpty())
        qDebug("[swc_print][func:%s][line:%d][size:%d][key:%d][value:%d]", __func__, __LINE__,
               selection.size(), selection.firstKey(), selection.first());
    return selection;
}

QMap<int, int> KeyMainWindow::insertSwcKey2Flag()
{
    const QMap<int, int> selection = selectChannel(mapSwcKeys, keyLine3);
    if (!selection.isEmpty())
        qDebug("[swc_print][%s %d][size:%d][key:%d][value:%d]", __func__, __LINE__,
               selection.size(), selection.firstKey(), selection.first());
    return selection;
}

// The file is rewritten in place, because the driver may have it open. The text is serialised
// before the file is truncated, and flushed before the program ends.
void KeyMainWindow::saveSwcKeys()
{
    const QMap<int, int> line2 = insertSwcKey1Flag();
    if (!line2.isEmpty())
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line2.firstKey(),
               intervalFor(line2.first()));
    const QMap<int, int> line3 = insertSwcKey2Flag();
    if (!line3.isEmpty())
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line3.firstKey(),
               intervalFor(line3.first()));

    QByteArray text;
    if (!mapSwcKeys.isEmpty()) {
        qDebug("[swc_print][func:%s]", __func__);
        text = configurationText(mapSwcKeys, line2, line3);
    }
    writeFile(Platform::configuration, text);
    flushToMedium(Platform::configuration);
}

void KeyMainWindow::backupDirection()
{
    if (QFile::exists(Platform::backup))
        return;
    copyToNewFile(Platform::configuration, Platform::backup);
    flushToMedium(Platform::backup);
}
