#include "keymainwindow.h"

#include "configuration.h"
#include "platform.h"
#include "platformfiles.h"
#include "reading.h"

#include <QByteArray>
#include <QDebug>
#include <QFile>

namespace {

// The window's operations give a channel and its spacing as a map of one entry, or of none.
QMap<int, int> selectionOf(const ChannelChoice &choice)
{
    QMap<int, int> selection;
    if (choice.channel != -1)
        selection.insert(choice.channel, choice.spacing);
    return selection;
}

ChannelChoice choiceOf(const QMap<int, int> &selection)
{
    if (selection.isEmpty())
        return {};
    return { selection.firstKey(), selection.first() };
}

} // namespace

// The "0" goes to the medium: with a "1" from before, the next boot would begin in learning mode.
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
    const QJsonObject configuration = parseConfiguration(readFile(Platform::configuration));
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
    const QMap<int, int> selection = selectionOf(selectChannel(mapSwcKeys, keyLine2));
    if (!selection.isEmpty())
        qDebug("[swc_print][func:%s][line:%d][size:%d][key:%d][value:%d]", __func__, __LINE__,
               selection.size(), selection.firstKey(), selection.first());
    return selection;
}

QMap<int, int> KeyMainWindow::insertSwcKey2Flag()
{
    const QMap<int, int> selection = selectionOf(selectChannel(mapSwcKeys, keyLine3));
    if (!selection.isEmpty())
        qDebug("[swc_print][%s %d][size:%d][key:%d][value:%d]", __func__, __LINE__,
               selection.size(), selection.firstKey(), selection.first());
    return selection;
}

// The file is rewritten in place, since the driver may hold it open. The bytes are ready before
// the old content goes, and on the medium before the program ends.
void KeyMainWindow::saveSwcKeys()
{
    const ChannelChoice line2 = choiceOf(insertSwcKey1Flag());
    if (line2.channel != -1)
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line2.channel,
               line2.interval());
    const ChannelChoice line3 = choiceOf(insertSwcKey2Flag());
    if (line3.channel != -1)
        qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, line3.channel,
               line3.interval());

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
