#include "keymainwindow.h"

#include "CustomMsgBox.h"
#include "androidtoast.h"
#include "buttonstyles.h"
#include "platform.h"
#include "platformfiles.h"
#include "timings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDialog>
#include <QFile>
#include <QHash>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace {

// Returns null for a code without a slot: such a key can be selected, but never times out.
const char *timeOutSlotOf(int code)
{
    static const QHash<int, const char *> timeOutSlots{
        { 314, SLOT(recorrectHomeBtnStatus()) },
        { 250, SLOT(recorrectBackBtnStatus()) },
        { 148, SLOT(recorrectPowerBtnStatus()) },
        { 149, SLOT(recorrectMuteBtnStatus()) },
        { 166, SLOT(recorrectVolPlusBtnStatus()) },
        { 167, SLOT(recorrectVolSubtractBtnStatus()) },
        { 232, SLOT(recorrectPrevBtnStatus()) },
        { 233, SLOT(recorrectNextBtnStatus()) },
        { 315, SLOT(recorrectSrcBtnStatus()) },
        { 157, SLOT(recorrectEnterBtnStatus()) },
        { 347, SLOT(recorrectBluetoothBtnStatus()) },
        { 351, SLOT(recorrectHangUpBtnStatus()) },
        { 325, SLOT(recorrectIlinkBtnStatus()) },
        { 344, SLOT(recorrectSiriBtnStatus()) },
        { 302, SLOT(recorrectMusicBtnStatus()) },
        { 226, SLOT(recorrectRadioBtnStatus()) },
        { 155, SLOT(recorrectLeftBtnStatus()) },
        { 156, SLOT(recorrectRightBtnStatus()) },
        { 153, SLOT(recorrectUpBtnStatus()) },
        { 154, SLOT(recorrectDownBtnStatus()) },
        { 326, SLOT(recorrectAmsBtnStatus()) },
        { 247, SLOT(recorrectPlayPauseBtnStatus()) },
    };
    return timeOutSlots.value(code);
}

} // namespace

void KeyMainWindow::onTouchKeysClicked()
{
    curButton = qobject_cast<QPushButton *>(sender());
    if (!curButton)
        return;
    if (curButton == btnClear) {
        qDebug("[swc_print][%s %d] canel all keys", __func__, __LINE__);
        askToClear();
    } else if (curButton == btnSave) {
        qDebug("[swc_print][%s %d] save all keys", __func__, __LINE__);
        saveSwcKeys();
        backupDirection();
        QCoreApplication::exit(0);
    } else if (mapButtonKeys.contains(curButton)) {
        selectKey(mapButtonKeys.value(curButton));
    }
}

void KeyMainWindow::selectKey(int code)
{
    if (isKeyLearned(code)) {
        showNotice(AndroidToast::Red, tr("LEARNED."));
        return;
    }
    // Samples from before this tap must not count, unless the key still waits from an earlier tap.
    if (!clickAndValidKeys.contains(code))
        dropSamples();
    curButton->setStyleSheet(ButtonStyles::selected);
    clickAndValidKeys.append(code);
    if (const char *slot = timeOutSlotOf(code))
        QTimer::singleShot(Timings::selection, this, slot);
}

void KeyMainWindow::askToClear()
{
    CustomMsgBox question(this, "Delete data?");
    const int answer = answerTo(&question);
    // If the user tapped the save button just before the clear button, the program is already
    // ending. exec() then returns without an answer, and the question is still visible.
    const bool answered = !question.isVisible();
    if (answered && answer == QDialog::Accepted) {
        clearKeys();
    } else if (answered && answer == QDialog::Rejected) {
        if (QFile::exists(Platform::backup)) {
            copyFile(Platform::backup, Platform::configuration);
            flushToMedium(Platform::configuration);
        }
        QCoreApplication::exit(0);
    }
    question.close();
}

// A slow head unit queues taps. A tap on the save button that follows a tap on Yes would be handled
// before exec() returns, and would save the keys that are about to be deleted.
int KeyMainWindow::answerTo(CustomMsgBox *question)
{
    const QSignalBlocker noSave(btnSave);
    const QSignalBlocker noClear(btnClear);
    return question->exec();
}

void KeyMainWindow::clearKeys()
{
    initSampleKeys();
    initSwcKeys();
    writeClearFlag();
    for (auto key = mapButtonKeys.cbegin(); key != mapButtonKeys.cend(); ++key)
        key.key()->setStyleSheet(ButtonStyles::unlearned);
}

void KeyMainWindow::showNotice(int level, const QString &text)
{
    if (!AndroidToast::isShowToast)
        AndroidToast::showTip(level, text, nullptr);
}

void KeyMainWindow::recorrectBtnStatus(int code)
{
    if (!clickAndValidKeys.contains(code))
        return;
    if (QPushButton *button = mapButtonKeys.key(code)) {
        qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, code);
        showNotice(AndroidToast::Red, tr("NO LEARNING."));
        button->setStyleSheet(ButtonStyles::unlearned);
    }
    endOneWait(code);
    qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, code);
}

bool KeyMainWindow::endOneWait(int code)
{
    const int index = clickAndValidKeys.indexOf(code);
    if (index < 0)
        return false;
    clickAndValidKeys.remove(index);
    return true;
}
