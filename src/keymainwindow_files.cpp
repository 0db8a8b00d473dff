#include "keymainwindow.h"

#include "configuration.h"
#include "platform.h"
#include "platformfiles.h"
#include "reading.h"

#include <QDebug>
#include <QFile>

void KeyMainWindow::writeLearnFlag(bool on)
{
    if (QFile::exists(Platform::flag))
        writeFile(Platform::flag, on ? "1" : "0");
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

// The file is rewritten in place, since the driver may hold it open. The bytes are ready before
// the old content goes, and on the medium before the program ends.
void KeyMainWindow::saveSwcKeys()
{
    QVector<Decoding> decodings;
    for (const auto select :
         { &KeyMainWindow::insertSwcKey1Flag, &KeyMainWindow::insertSwcKey2Flag }) {
        const Decoding decoding = decodingOf((this->*select)());
        if (decoding.road != -1)
            qDebug("[swc_print][%s %d][key:%d][value:%d]", __func__, __LINE__, decoding.road,
                   decoding.interval);
        decodings.append(decoding);
    }

    QByteArray text;
    if (!mapSwcKeys.isEmpty()) {
        qDebug("[swc_print][func:%s]", __func__);
        text = configurationText(mapSwcKeys, decodings.at(0), decodings.at(1));
    }
    writeFile(Platform::configuration, text);
    flushToMedium(Platform::configuration);
}

void KeyMainWindow::backupDirection()
{
    if (QFile::exists(Platform::backup))
        return;
    copyFile(Platform::configuration, Platform::backup);
    flushToMedium(Platform::backup);
}
