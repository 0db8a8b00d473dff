#include "keymainwindow.h"

#include "configuration.h"
#include "platform.h"
#include "platformfiles.h"
#include "reading.h"

#include <QByteArray>
#include <QDebug>
#include <QFile>

// Without the flush, a power failure could leave "1" in the file after the program has ended.
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
    const QMap<int, int> selected = selectChannel(mapSwcKeys, keyLine2);
    if (!selected.isEmpty())
        qDebug("[swc_print][func:%s][line:%d][size:%d][key:%d][value:%d]", __func__, __LINE__,
               selected.size(), selected.firstKey(), selected.first());
    return selected;
}

QMap<int, int> KeyMainWindow::insertSwcKey2Flag()
{
    const QMap<int, int> selected = selectChannel(mapSwcKeys, keyLine3);
    if (!selected.isEmpty())
        qDebug("[swc_print][%s %d][size:%d][key:%d][value:%d]", __func__, __LINE__, selected.size(),
               selected.firstKey(), selected.first());
    return selected;
}

// The file is rewritten in place, because the driver may have it open. The text is serialised
// before the file is truncated, and flushed before the program ends.
void KeyMainWindow::saveSwcKeys()
{
    const QMap<int, int> line2Channel = insertSwcKey1Flag();
    if (!line2Channel.isEmpty())
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line2Channel.firstKey(),
               intervalFor(line2Channel.first()));
    const QMap<int, int> line3Channel = insertSwcKey2Flag();
    if (!line3Channel.isEmpty())
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line3Channel.firstKey(),
               intervalFor(line3Channel.first()));

    QByteArray text;
    if (!mapSwcKeys.isEmpty()) {
        qDebug("[swc_print][func:%s]", __func__);
        text = configurationText(mapSwcKeys, line2Channel, line3Channel);
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
