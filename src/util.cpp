#include "util.h"

#include "platform.h"

#include <QDebug>
#include <QFile>
#include <QStringList>

int Util::getLanguageIdx()
{
    QFile settings(Platform::settings);
    if (!settings.exists() || !settings.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;

    const QString line = languageLine(settings);
    if (line.isEmpty())
        return 0;

    const int index = languageIndexOf(line);
    qDebug("[virtual_print][%s]language idx:%d", __func__, index);
    return index;
}

QString languageLine(QIODevice &settings)
{
    while (!settings.atEnd()) {
        QString line = QString::fromUtf8(settings.readLine().simplified());
        if (line.startsWith("SystemLanguageId"))
            return line;
    }
    return QString();
}

int languageIndexOf(const QString &line)
{
    return line.split('=').value(1).toInt();
}
