#include "catalogue.h"
#include "configuration.h"
#include "headunit.h"
#include "reading.h"
#include "records.h"
#include "util.h"

#include <QBuffer>
#include <QHash>

// What needs no widget. Each function puts an outcome into words.
namespace {

QString readingOf(const QString &text)
{
    Reading reading;
    const ReadingFault fault = parseReading(text, &reading);
    if (fault != ReadingFault::None)
        return fault == ReadingFault::NoColon ? "no colon" : "too few fields";
    QString outcome = reading.payload + ": " + QString::number(reading.keyLine);
    for (int value : reading.adc)
        outcome += ' ' + QString::number(value);
    return outcome + ' '
        + QStringList{ "sample", "release", "invalid" }.at(static_cast<int>(classify(reading)));
}

// "RECORD*3" stands for three of them.
QMap<int, QString> numbered(const QString &records)
{
    QMap<int, QString> byNumber;
    for (const QString &record : records.split(' ')) {
        for (int count = qMax(1, record.section('*', 1).toInt()); count > 0; --count)
            byNumber.insert(5 + 2 * byNumber.size(), record.section('*', 0, 0));
    }
    return byNumber;
}

QString meanOf(const QString &samples)
{
    return learnedRecordFrom(numbered(samples));
}

QString collisionOf(const QString &records)
{
    const QString learned = records.section(' ', 1);
    return collides(RecordFields(records.section(' ', 0, 0)), RecordFields(learned)) ? "collides"
                                                                                     : "differs";
}

QString channelOf(const QString &records)
{
    const ChannelChoice choice = selectChannel(numbered(records), 2);
    return QString("%1 by %2, interval %3")
        .arg(choice.channel)
        .arg(choice.spacing)
        .arg(choice.interval());
}

QString catalogueOf(const QString &text)
{
    QByteArray bytes = text.toUtf8().replace('@', '\0');
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const Catalogue catalogue = readCatalogue(file);
    QStringList rows;
    for (int i = 0; i < catalogue.codes.size(); ++i)
        rows += catalogue.names.value(i) + ' ' + QString::number(catalogue.codes.at(i)) + ' '
            + catalogue.iconPaths.value(i);
    return rows.join('|');
}

QString languageOf(const QString &settings)
{
    const HeadUnit unit;
    write(settingsPath, settings.toUtf8());
    const int language = Util().getLanguageIdx();
    const QString line = QString("[virtual_print][getLanguageIdx]language idx:%1|").arg(language);
    return QString::number(language) + (takeLog() == line ? " logged" : "");
}

} // namespace

class TestValues : public QObject
{
    Q_OBJECT

private slots:
    void outcomes_data() { addRows("values"); }
    void outcomes()
    {
        QFETCH(QString, input);
        const QHash<QString, QString (*)(const QString &)> functions{
            { "reading", readingOf }, { "mean", meanOf },           { "collision", collisionOf },
            { "channel", channelOf }, { "catalogue", catalogueOf }, { "language", languageOf },
        };
        const QString name = QString(QTest::currentDataTag()).section(',', 0, 0);
        QTEST(functions.value(name)(input), "expected");
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
