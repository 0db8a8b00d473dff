#include "catalogue.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

Catalogue readCatalogue(QIODevice &file)
{
    Catalogue catalogue;
    while (!file.atEnd()) {
        const QByteArray bytes = file.readLine();
        const QString line = QString::fromUtf8(bytes.constData()); // up to a NUL byte
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QStringList fields = line.simplified().split(' ', QString::SkipEmptyParts);
        if (fields.size() < 3)
            continue;
        catalogue.names.append(fields.at(0));
        catalogue.codes.append(fields.at(1).toInt());
        catalogue.iconPaths.append(fields.at(2));
    }
    return catalogue;
}
