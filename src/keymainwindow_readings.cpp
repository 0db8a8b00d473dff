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

namespace {

// Where a new file was renamed over the old one, the watch stays with the old one, and goes when
// nobody holds that any more. Following it before reading leaves no gap. A new watch costs as much
// as half a sample and wakes the program once more, so the same file is not watched again.
void followFile(QFileSystemWatcher *watcher, const QString &path, quint64 number)
{
    constexpr char watchedNumber[] = "watchedNumber";
    if (number != 0 && watcher->property(watchedNumber).toULongLong() == number
        && watcher->files().contains(path))
        return;
    watcher->removePath(path);
    watcher->addPath(path);
    watcher->setProperty(watchedNumber, number);
}

} // namespace

void KeyMainWindow::onFileChange(QString path)
{
    Reading reading;
    if (!takeReading(path, &reading))
        return;
    if (!curButton || curButton == btnClear || curButton == btnSave
        || !isKnownKeyLine(reading.keyLine))
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
        if (removePending(validKey))
            qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, validKey);
        break;
    case ReadingClass::Invalid:
        rejectReading();
        break;
    }
}

bool KeyMainWindow::takeReading(const QString &path, Reading *reading)
{
    const quint64 number = fileNumber(path);
    if (number == 0 && !QFile::exists(path))
        return false;
    if (fileWatcher && sender() == fileWatcher)
        followFile(fileWatcher, path, number);

    const QByteArray bytes = readFile(path);
    const QString text = QString::fromUtf8(bytes.constData()); // ends at a NUL byte
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

// Two keys can wait at once; a record is made of the samples of one.
void KeyMainWindow::dropSamplesOfOtherKeys()
{
    if (!mapSampleKeys.isEmpty() && keyCodeOf(mapSampleKeys.first()) != validKey)
        initSampleKeys();
}
