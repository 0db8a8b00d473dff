#include "util.h"

#include "platform.h"
#include "platformfiles.h"

#include <QDebug>
#include <QStringList>

namespace {

constexpr int mostSettings = 1 << 20; // in bytes; far more than the platform's settings have

} // namespace

int Util::getLanguageIdx()
{
    const QString line = languageLine(readStart(Platform::settings, mostSettings));
    if (line.isEmpty())
        return 0;

    const int index = languageIndexOf(line);
    qDebug("[virtual_print][%s]language idx:%d", __func__, index);
    return index;
}

QString languageLine(const QByteArray &settings)
{
    for (const QByteArray &bytes : settings.split('\n')) {
        QString line = QString::fromUtf8(bytes.simplified());
        if (line.startsWith("SystemLanguageId"))
            return line;
    }
    return QString();
}

int languageIndexOf(const QString &line)
{
    return line.split('=').value(1).toInt();
}
