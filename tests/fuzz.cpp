#include "configuration.h"
#include "reading.h"
#include "records.h"

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
void reading(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes.constData());
    Reading result;
    if (parseReading(text, &result) != ReadingFault::None)
        return;

    const QString sample = sampleRecord(314, result.payload);
    require(keyCodeOf(sample) == 314);
    collides(RecordFields(sample), RecordFields(text)); // a configuration's record may be anything
    if (classify(result) != ReadingClass::Sample)
        return;
    const QString learned = learnedRecordFrom({ { 0, sample } });
    require(learned == learnedRecord(result.keyLine, result.adc)
            && collides(RecordFields(sample), RecordFields(learned)));
}

// Saving keeps every key, with three values each, and a second save changes nothing.
void configuration(const QByteArray &bytes)
{
    QMap<int, QString> keys = load(bytes);
    const QByteArray text = save(keys);
    for (QString &record : keys) {
        const RecordFields fields(record);
        record = learnedRecord(fields.at(0), { { fields.at(1), fields.at(2), fields.at(3) } });
    }
    require(load(text) == keys && save(keys) == text);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FUZZ_TARGET(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
