#include "util.h"

#include "platform.h"
#include "platformfiles.h"

#include <QByteArray>
#include <QDebug>
#include <QString>

constexpr int mostSettings = 1 << 20; // in bytes; far more than the platform's settings have

int Util::getLanguageIdx()
{
    for (const QByteArray &bytes : readStart(Platform::settings, mostSettings).split('\n')) {
        const QString line = QString::fromUtf8(bytes.simplified());
        if (!line.startsWith("SystemLanguageId"))
            continue;
        // Where there is no "=", the index is that of a missing setting.
        const int index = line.section('=', 1, 1).toInt();
        qDebug("[virtual_print][%s]language idx:%d", __func__, index);
        return index;
    }
    return 0;
}
