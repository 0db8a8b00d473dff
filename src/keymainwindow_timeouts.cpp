#include "keymainwindow.h"

#include "androidtoast.h"
#include "buttonstyles.h"

#include <QDebug>
#include <QHash>
#include <QPushButton>

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

// Null for a code without a slot: such a key can be selected, and never times out.
const char *KeyMainWindow::timeOutSlotOf(int code)
{
#define TABLE_ROW(code, Name) { code, SLOT(recorrect##Name##BtnStatus()) },
    static const QHash<int, const char *> slotsByCode{ TIME_OUT_SLOTS(TABLE_ROW) };
#undef TABLE_ROW
#undef TIME_OUT_SLOTS
    return slotsByCode.value(code);
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
