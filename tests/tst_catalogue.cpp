#include "catalogue.h"

#include <QBuffer>
#include <QtTest>

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void aRowIsNameCodeAndIcon()
    {
        const char rows[] =
            "home 314 :/a.png\r\n\tback \t 250\t:/b.png more\r\n#mute 149 :/c.png\r\n"
            "   \r\ntwo 2\r\n  # 0x5 d\r\nhome 3\0 14 :/a.png\r\nhome 314 :/a.png";
        QByteArray text(rows, sizeof(rows) - 1);
        QBuffer file(&text);
        file.open(QIODevice::ReadOnly);
        const Catalogue catalogue = readCatalogue(file);
        QCOMPARE(catalogue.names, (QStringList{ "home", "back", "#", "home" }));
        QCOMPARE(catalogue.codes, (QList<int>{ 314, 250, 0, 314 }));
        QCOMPARE(catalogue.iconPaths, (QStringList{ ":/a.png", ":/b.png", "d", ":/a.png" }));
    }
};

QTEST_APPLESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
