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
#include <QPushButton>
#include <QTimer>

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
    const int answer = question.exec();
    if (answer == QDialog::Accepted) {
        clearKeys();
    } else if (answer == QDialog::Rejected) {
        if (QFile::exists(Platform::backup)) {
            copyFile(Platform::backup, Platform::configuration);
            flushToMedium(Platform::configuration);
        }
        QCoreApplication::exit(0);
    }
    question.close();
}

void KeyMainWindow::clearKeys()
{
    initSampleKeys();
    initSwcKeys();
    writeClearFlag();
    for (QPushButton *button : mapButtonKeys.keys())
        button->setStyleSheet(ButtonStyles::unlearned);
}

void KeyMainWindow::showNotice(int level, const QString &text)
{
    if (!AndroidToast::isShowToast)
        AndroidToast::showTip(level, text, nullptr);
}
