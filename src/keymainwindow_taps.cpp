#include "keymainwindow.h"

#include "CustomMsgBox.h"
#include "androidtoast.h"
#include "buttonstyles.h"
#include "platform.h"
#include "platformfiles.h"
#include "timings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QHash>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

// A timer reaches a slot by its name and passes no argument, so each key has a slot of its own.
// The rows give both the slots' bodies and the table by code.
#define TIME_OUT_SLOTS(ROW) \
    ROW(314, Home) \
    ROW(250, Back) \
    ROW(148, Power) \
    ROW(149, Mute) \
    ROW(166, VolPlus) \
    ROW(167, VolSubtract) \
    ROW(232, Prev) \
    ROW(233, Next) \
    ROW(315, Src) \
    ROW(157, Enter) \
    ROW(347, Bluetooth) \
    ROW(351, HangUp) \
    ROW(325, Ilink) \
    ROW(344, Siri) \
    ROW(302, Music) \
    ROW(226, Radio) \
    ROW(155, Left) \
    ROW(156, Right) \
    ROW(153, Up) \
    ROW(154, Down) \
    ROW(326, Ams) \
    ROW(247, PlayPause)

#define SLOT_BODY(code, Name) \
    void KeyMainWindow::recorrect##Name##BtnStatus() \
    { \
        recorrectBtnStatus(code); \
    }
TIME_OUT_SLOTS(SLOT_BODY)
#undef SLOT_BODY

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
    // A new selection starts without the samples that an earlier one left behind. A second tap on a
    // key that still waits is no new selection.
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
    // exec() also returns where the program is ending, after a tap on save just before this one.
    // The question is still open then, and nobody has answered it.
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

// A slow unit queues taps: one right behind the answer is handled before exec() returns, and save
// would write what the answer is about to delete.
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

// Null for a code without a slot: such a key can be selected, and never times out.
const char *KeyMainWindow::timeOutSlotOf(int code)
{
#define TABLE_ROW(code, Name) { code, SLOT(recorrect##Name##BtnStatus()) },
    static const QHash<int, const char *> slotsByCode{ TIME_OUT_SLOTS(TABLE_ROW) };
#undef TABLE_ROW
    return slotsByCode.value(code);
}
#undef TIME_OUT_SLOTS

void KeyMainWindow::recorrectBtnStatus(int code)
{
    if (!clickAndValidKeys.contains(code))
        return;
    if (QPushButton *button = mapButtonKeys.key(code)) {
        qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, code);
        showNotice(AndroidToast::Red, tr("NO LEARNING."));
        button->setStyleSheet(ButtonStyles::unlearned);
    }
    removePending(code);
    qDebug("[swc_print][%s %d] remove:%d", __func__, __LINE__, code);
}

bool KeyMainWindow::removePending(int code)
{
    const int index = clickAndValidKeys.indexOf(code);
    if (index < 0)
        return false;
    clickAndValidKeys.remove(index);
    return true;
}
