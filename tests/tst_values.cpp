#include "catalogue.h"
#include "configuration.h"
#include "headunit.h"
#include "reading.h"
#include "records.h"

#include <QBuffer>

// What needs no widget. A row's name begins with that of a function, which puts the outcome into
// words.
class TestValues : public QObject
{
    Q_OBJECT

    Q_INVOKABLE static QString reading(const QString &text)
    {
        Reading reading;
        const ReadingFault fault = parseReading(text, &reading);
        if (fault != ReadingFault::None)
            return fault == ReadingFault::NoColon ? "no colon" : "too few fields";
        const QStringList classes{ "sample", "release", "invalid" };
        return reading.payload + ": " + learnedRecord(reading.keyLine, reading.adc) + ' '
            + classes.at(static_cast<int>(classify(reading)));
    }

    // "RECORD*3" stands for three of them.
    static QMap<int, QString> numbered(const QString &records)
    {
        QMap<int, QString> byNumber;
        for (const QString &record : records.split(' ')) {
            for (int count = qMax(1, record.section('*', 1).toInt()); count > 0; --count)
                byNumber.insert(5 + 2 * byNumber.size(), record.section('*', 0, 0));
        }
        return byNumber;
    }

    Q_INVOKABLE static QString mean(const QString &samples)
    {
        return learnedRecordFrom(numbered(samples));
    }

    Q_INVOKABLE static QString collision(const QString &records)
    {
        const RecordFields sample(records.section(' ', 0, 0));
        return collides(sample, RecordFields(records.section(' ', 1))) ? "collides" : "differs";
    }

    Q_INVOKABLE static QString channel(const QString &records)
    {
        const ChannelChoice choice = selectChannel(numbered(records), 2);
        const QString text = QString("%1 by %2, interval %3").arg(choice.channel);
        return text.arg(choice.spacing).arg(choice.interval());
    }

    Q_INVOKABLE static QString catalogue(const QString &text)
    {
        QBuffer file;
        file.setData(text.toUtf8());
        file.open(QIODevice::ReadOnly);
        const Catalogue catalogue = readCatalogue(file);
        QString rows;
        for (int i = 0; i < catalogue.codes.size(); ++i)
            rows += catalogue.names.value(i) + ' ' + QString::number(catalogue.codes.at(i)) + ' '
                + catalogue.iconPaths.value(i) + '|';
        return rows;
    }

private slots:
    void outcomes_data() { addRows("values"); }
    void outcomes()
    {
        QFETCH(QString, input);
        const QByteArray function = QByteArray(QTest::currentDataTag()).split(',').first();
        QString outcome;
        QVERIFY(QMetaObject::invokeMethod(this, function, Q_RETURN_ARG(QString, outcome),
                                          Q_ARG(QString, input)));
        QTEST(outcome, "expected");
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
