#include "keymainwindow.h"

#include "androidtoast.h"
#include "buttonstyles.h"
#include "platformfiles.h"
#include "reading.h"
#include "records.h"

#include <QDebug>
#include <QFile>
#include <QFileSystemWatcher>
#include <QPushButton>

constexpr int maxRepeats = 5; // readChange() reads the file again at most this many times

void KeyMainWindow::onFileChange(QString path)
{
    Reading reading;
    if (!takeReading(path, &reading))
        return;
    if (!curButton || curButton == btnClear || curButton == btnSave)
        return;
    if (reading.keyLine != keyLine2 && reading.keyLine != keyLine3)
        return;

    validKey = mapButtonKeys.value(curButton);
    qDebug("[swc_print][%s %d] validKey:%d clickAndValidKeys.size():%d", __func__, __LINE__,
           validKey, clickAndValidKeys.size());
    if (validKey == 0 || clickAndValidKeys.isEmpty()) {
        qDebug("[swc_print][%s %d] NO BUTTON is pressed", __func__, __LINE__);
        return;
    }

    strSampleKey = sampleRecord(validKey, reading.payload);
    switch (classify(reading)) {
    case ReadingClass::Sample:
        handleSample();
        break;
    case ReadingClass::Release:
        handleRelease();
        if (endOneWait(validKey))
            qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, validKey);
        break;
    case ReadingClass::Invalid:
        rejectReading();
        break;
    }
}

bool KeyMainWindow::takeReading(const QString &path, Reading *reading)
{
    if (!QFile::exists(path))
        return false;
    const QString text = readChange(path);
    switch (parseReading(text, reading)) {
    case ReadingFault::None:
        return true;
    case ReadingFault::NoColon:
        qDebug() << "[swc_print][!contains(:)]" << text;
        break;
    case ReadingFault::TooFewFields:
        qDebug() << "[swc_print][fewer than four fields]" << text;
        break;
    }
    return false;
}

// Reads the text, renews the watch and reads the text again, until the text no longer changes.
// Renewing the watch discards the signals of changes that have already been read. It also makes the
// watcher watch a new file that was renamed over the old one. A change after the renewal sends a
// new signal.
QString KeyMainWindow::readChange(const QString &path)
{
    QString text = readText(path);
    for (int i = 0; i < maxRepeats && fileWatcher && sender() == fileWatcher; ++i) {
        fileWatcher->removePath(path);
        fileWatcher->addPath(path);
        const QString again = readText(path);
        if (again == text)
            break;
        text = again;
    }
    return text;
}

void KeyMainWindow::handleSample()
{
    if (isChuanKey(strSampleKey)) {
        showNotice(AndroidToast::Red, tr("REPEAT."));
        qDebug("[swc_print][line:%d][Velmora %d is CHUAN!] GRAY...", __LINE__, validKey);
        curButton->setStyleSheet(ButtonStyles::unlearned);
        return;
    }
    dropSamplesOfOtherKeys();
    insertSampleKeys(sampleKeyIdx, strSampleKey);
    ++sampleKeyIdx;
}

void KeyMainWindow::handleRelease()
{
    dropSamplesOfOtherKeys();
    if (insertSwcKeys() == 0) {
        qDebug("[swc_print][line:%d][Velmora %d is success!] GREEN...", __LINE__, validKey);
        initSampleKeys();
        showNotice(AndroidToast::Black, tr("SUCCESS."));
        curButton->setStyleSheet(ButtonStyles::learned);
    } else {
        rejectReading();
    }
}

void KeyMainWindow::rejectReading()
{
    showNotice(AndroidToast::Red, tr("FAILED."));
    curButton->setStyleSheet(ButtonStyles::unlearned);
    qDebug("[swc_print][line:%d][Velmora %d is fail!] GRAY...", __LINE__, validKey);
}

// Several keys can wait at once, but a record must be made from the samples of one key.
void KeyMainWindow::dropSamplesOfOtherKeys()
{
    if (!mapSampleKeys.isEmpty() && keyCodeOf(mapSampleKeys.first()) != validKey)
        dropSamples();
}

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
    for (const QString &learned : mapSwcKeys) {
        if (collides(sample, learned))
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
