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

QMap<int, QString> numbered(const QString &records)
{
    QMap<int, QString> byNumber;
    for (const QString &record : records.split(' '))
        byNumber.insert(5 + 2 * byNumber.size(), record);
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
    void outcomes_data()
    {
        QString many = "9,2,4000,0,0"; // their mean is 4000.4999, 4000.5 in single precision
        for (int i = 1; i < 10000; ++i)
            many += i < 5000 ? " 9,2,4001,0,0" : " 9,2,4000,0,0";
        addRows("mean, single precision: " + many + " => 2,4001,0,0" + R"(
reading, a longer reading's rest follows: 7:2,1,2,399,9 => 2,1,2,3: 2 1 2 3 sample
reading, a count past the end: 99:2,1,2,3 => 2,1,2,3: 2 1 2 3 sample
reading, a negative count: -3:2,1,2,3 => 2,1,2,3: 2 1 2 3 sample
reading, a second colon: 99:2,1,2,3:9 => 2,1,2,3: 2 1 2 3 sample
reading, a fifth field: 18:2,1200,4094,4094,77 => 2,1200,4094,4094,7: 2 1200 4094 4094 sample
reading, white space and an empty field: 9:3, 1,2 ,,5 => 3, 1,2 ,,: 3 1 2 0 sample
reading, no numbers: 9:x,1.5,,0x1F => x,1.5,,0x: 0 0 0 0 sample
reading, a release: 16:3,4095,4095,4095 => 3,4095,4095,4095: 3 4095 4095 4095 release
reading, half a release: 99:2,9,4095,4095 => 2,9,4095,4095: 2 9 4095 4095 invalid
reading, the other half: 99:2,4095,4095,9 => 2,4095,4095,9: 2 4095 4095 9 invalid
reading, above the range: 99:2,4096,4096,4096 => 2,4096,4096,4096: 2 4096 4096 4096 invalid
reading, below the range: 99:2,9,9,-1 => 2,9,9,-1: 2 9 9 -1 invalid
reading, no colon: 2,1200,4094,4094 => no colon
reading, three fields: 99:2,1200,4094 => too few fields
reading, a count that ends too early: 5:2,1,2,3 => too few fields
reading, a count that is none: x:2,1,2,3 => too few fields
mean, a half goes up, a fifth value is not read: 9,2,1200,0,7,99 9,2,1203,1,7 => 2,1202,1,7
mean, thirds: 9,3,2,2,0 9,3,3,2,0 9,3,3,3,0 => 3,3,2,0
mean, the first sample has the key line: 9,3,1,1,1 9,2,3,3,3 9,2,5,5,5 => 3,3,3,3
collision, 60 below in each: 9,2,1000,2000,3000 2,940,1940,2940 => collides
collision, 60 above in each: 9,2,1000,2000,3000 2,1060,2060,3060,9 => collides
collision, 61 in the first: 9,2,1000,2000,3000 2,1061,2000,3000 => differs
collision, 61 in the second: 9,2,1000,2000,3000 2,1000,1939,3000 => differs
collision, 61 in the third: 9,2,1000,2000,3000 2,1000,2000,3061 => differs
collision, the other key line: 9,2,1000,2000,3000 3,1000,2000,3000 => differs
collision, a learned record of three fields: 9,2,1,2,0 2,1,2 => differs
collision, the ends of int: 9,2,2147483647,0,0 2,-2147483648,0,0 => differs
channel, no key of the line: 3,1,2,3 => -1 by -1, interval -1
channel, a tie of 2 and 3: 2,806,4094,4094 => 3 by 4094, interval 2047
channel, the distance of neighbours: 2,2301,3,4 3,0,0,0 2,1202,3,4 => 1 by 1099, interval 549
channel, the lowest value is less: 2,10,0,0 2,500,0,0 => 1 by 10, interval 5
channel, values in no order: 2,0,3000,0 2,0,900,0 2,0,2000,0 => 2 by 900, interval 450
channel, missing values count as 0: 2 2,8,9 => 3 by 0, interval 0
channel, the ends of int: 2,2147483647,-9,-9 2,-2147483648,-9,-9 => 3 by -9, interval -5
catalogue, a comment begins a line: # a 1 b\r\n#c 2 d\r\n  # a\r\n  # a b\r\n => # 0 b
catalogue, tabs, a fourth field, no line end: \ta \t 1\tb c => a 1 b
catalogue, fewer fields, no number, the same row again: a 1\r\n\r\n   \r\nb 0x5 c\r\nb 0x5 c\r\n => b 0 c|b 0 c
catalogue, a NUL byte ends the line: a 1 b@c d\ne 2 f\n => a 1 b|e 2 f
language, Chinese: Volume=5\nSystemLanguageId=1\n => 1 logged
language, blanks and line ends: \t SystemLanguageId  =  2 \r\nSystemLanguageId=1\r\n => 2 logged
language, carriage returns are dropped: System\rLanguageId=\r1 => 1 logged
language, no number: SystemLanguageId=Chinese => 0 logged
language, no sign: SystemLanguageId 1\nSystemLanguageId=1 => 0 logged
language, two signs: SystemLanguageId=1=2 => 1 logged
language, a longer key first: SystemLanguageIdOld=3\nSystemLanguageId=1\n => 3 logged
language, no such key: #SystemLanguageId=1\nsystemlanguageid=1 => 0)");
    }
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
