#include "catalogue.h"
#include "configuration.h"
#include "reading.h"
#include "records.h"
#include "util.h"

#include <QBuffer>
#include <QJsonObject>

#include <cstdlib>

// One source, one program for each of the functions: FUZZ_TARGET names it. Whatever the bytes are,
// a target ends without a report of the sanitizers and without abort().

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

QMap<int, QString> load(const QByteArray &text)
{
    const QJsonObject configuration = parseConfiguration(text);
    QMap<int, QString> keys;
    for (const char *group : { line2Group, line3Group }) {
        for (const LoadedKey &key : keysOfGroup(configuration, group))
            keys.insert(key.code, key.record);
    }
    return keys;
}

QByteArray save(const QMap<int, QString> &keys)
{
    return configurationText(keys, selectChannel(keys, 2), selectChannel(keys, 3));
}

} // namespace

// A sample that is learned on its own keeps its values and then collides with itself.
void reading(QBuffer &file)
{
    const QByteArray bytes = file.readAll();
    const QString text = QString::fromUtf8(bytes.constData());
    Reading result;
    if (parseReading(text, &result) != ReadingFault::None)
        return;

    QString sample = sampleRecord(314, result.payload);
    require(keyCodeOf(sample) == 314);
    collides(RecordFields(sample), RecordFields(text)); // a configuration's record may be anything
    if (classify(result) != ReadingClass::Sample)
        return;
    const QString learned = learnedRecordFrom({ { 0, sample } });
    require(learned == learnedRecord(result.keyLine, result.adc));
    require(collides(RecordFields(sample), RecordFields(learned)));
}

// Saving keeps every key, with three values each, and a second save changes nothing.
void configuration(QBuffer &file)
{
    QMap<int, QString> keys = load(file.readAll());
    const QByteArray text = save(keys);
    for (QString &record : keys) {
        const RecordFields fields(record);
        record = learnedRecord(fields.at(0), { { fields.at(1), fields.at(2), fields.at(3) } });
    }
    require(load(text) == keys);
    require(save(keys) == text);
}

// Every row comes back from a file that has only the rows.
void catalogue(QBuffer &file)
{
    file.setTextModeEnabled(false);
    const Catalogue rows = readCatalogue(file);
    require(rows.names.size() == rows.codes.size());
    require(rows.names.size() == rows.iconPaths.size());

    QByteArray text;
    for (int i = 0; i < rows.names.size(); ++i) {
        const QStringList fields{ rows.names.at(i), QString::number(rows.codes.at(i)),
                                  rows.iconPaths.at(i) };
        text += ' ' + fields.join(' ').toUtf8() + '\n';
    }
    QBuffer again(&text);
    again.open(QIODevice::ReadOnly);
    const Catalogue copy = readCatalogue(again);
    require(copy.names == rows.names);
    require(copy.codes == rows.codes);
    require(copy.iconPaths == rows.iconPaths);
}

// The line that is found means the same where it stands alone.
void settings(QBuffer &file)
{
    const QString line = languageLine(file.readAll());
    const QString copy = languageLine(line.toUtf8());
    require(copy.isEmpty() == line.isEmpty());
    require(languageIndexOf(copy) == languageIndexOf(line));
    languageIndexOf(QString::fromUtf8(file.data()));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly | QIODevice::Text);
    FUZZ_TARGET(file);
    return 0;
}
