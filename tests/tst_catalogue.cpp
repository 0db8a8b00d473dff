#include "catalogue.h"

#include <QBuffer>
#include <QtTest>

namespace {

Catalogue catalogueOf(const QByteArray &text)
{
    QBuffer file;
    file.setData(text);
    file.open(QIODevice::ReadOnly);
    return readCatalogue(file);
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void aRowIsNameCodeAndIcon()
    {
        const Catalogue catalogue = catalogueOf("home 314 :/a.png\r\n\tback \t 250\t:/b.png more");
        QCOMPARE(catalogue.names, (QStringList{ "home", "back" }));
        QCOMPARE(catalogue.codes, (QList<int>{ 314, 250 }));
        QCOMPARE(catalogue.iconPaths, (QStringList{ ":/a.png", ":/b.png" }));
    }

    void otherRowsAreSkipped_data()
    {
        QTest::addColumn<QByteArray>("row");
        QTest::newRow("blanks") << QByteArray("   ");
        QTest::newRow("two fields") << QByteArray("home 314");
        QTest::newRow("a comment") << QByteArray("#home 314 :/a.png");
        QTest::newRow("a NUL byte") << QByteArray("home 3\0 14 :/a.png", 18);
    }
    void otherRowsAreSkipped()
    {
        QFETCH(QByteArray, row);
        QCOMPARE(catalogueOf(row + "\r\nback 250 :/b.png\r\n").codes, QList<int>{ 250 });
    }

    void unusualRowsCount()
    {
        const Catalogue catalogue = catalogueOf("  # a 1 b\nx 0x5 c\nx 0x5 c\n");
        QCOMPARE(catalogue.names, (QStringList{ "#", "x", "x" }));
        QCOMPARE(catalogue.codes, (QList<int>{ 0, 0, 0 }));
    }
};

QTEST_APPLESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
