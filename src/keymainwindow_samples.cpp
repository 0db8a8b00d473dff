#include "keymainwindow.h"

#include "records.h"

#include <QDebug>

void KeyMainWindow::insertSampleKeys(int &index, QString &sample)
{
    for (const QString &stored : mapSampleKeys) {
        if (stored == sample) {
            qDebug("[swc_print][ChongFuKeys...]");
            return;
        }
    }
    mapSampleKeys.insert(index, sample);
    qDebug("[swc_print][func:%s][key:%d, value(%s)][size:%d]", __func__, index,
           sample.toLocal8Bit().constData(), mapSampleKeys.size());
}

bool KeyMainWindow::isChuanKey(QString &sample)
{
    if (mapSwcKeys.isEmpty()) {
        qDebug("[swc_print][%s][mapSwcKeys' size is empty]", __func__);
        return false;
    }
    const RecordFields fields(sample);
    for (const QString &learned : mapSwcKeys) {
        if (collides(fields, learned))
            return true;
    }
    return false;
}

int KeyMainWindow::insertSwcKeys()
{
    if (mapSampleKeys.isEmpty()) {
        qDebug("[swc_print][func:%s][line:%d][mapSampleKeys is empty]", __func__, __LINE__);
        return -1;
    }
    mapSwcKeys.insert(keyCodeOf(mapSampleKeys.first()), learnedRecordFrom(mapSampleKeys));
    return 0;
}

bool KeyMainWindow::isKeyLearned(int code)
{
    if (!mapSwcKeys.contains(code))
        return false;
    qDebug("[swc_print]%d is LEARNED.", code);
    return true;
}

void KeyMainWindow::initSampleKeys()
{
    if (mapSampleKeys.isEmpty())
        return;
    dropSamples();
    qDebug("[swc_print][func:%s][mapSampleKeys' size:%d]", __func__, mapSampleKeys.size());
}

void KeyMainWindow::dropSamples()
{
    mapSampleKeys.clear();
    sampleKeyIdx = 0;
}

void KeyMainWindow::initSwcKeys()
{
    if (mapSwcKeys.isEmpty())
        return;
    mapSwcKeys.clear();
    qDebug("[swc_print][func:%s][size:%d]", __func__, mapSwcKeys.size());
}
