#include "util.h"

#include "platform.h"
#include "platformfiles.h"

#include <QBuffer>
#include <QByteArray>
#include <QDebug>
#include <QIODevice>
#include <QString>

int Util::getLanguageIdx()
{
    QByteArray settings = readFile(Platform::settings);
    QBuffer file(&settings);
    file.open(QIODevice::ReadOnly);
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine().simplified());
        if (!line.startsWith("SystemLanguageId"))
            continue;
        const int index = line.section('=', 1, 1).toInt();
        qDebug("[virtual_print][%s]language idx:%d", __func__, index);
        return index;
    }
    return 0;
}
