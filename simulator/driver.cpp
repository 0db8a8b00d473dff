#include "driver.h"

#include <QDir>
#include <QFile>
#include <QMap>

#include <cstdio>
#include <utility>

namespace {

constexpr char filesFolder[] = "media/flash/nvm";
constexpr char readingFile[] = "swc_keys";
constexpr char flagFile[] = "swc_flags";
constexpr char configurationFile[] = "direction.json";

using Write = bool (*)(const QString &path, const QByteArray &content);

// One write, so that a reader sees either nothing or all of it.
bool writeOpened(const QString &path, const QByteArray &content, QIODevice::OpenMode mode)
{
    QFile file(path);
    return file.open(mode | QIODevice::Unbuffered) && file.write(content) == content.size();
}

bool truncateAndWrite(const QString &path, const QByteArray &content)
{
    return writeOpened(path, content, QIODevice::WriteOnly | QIODevice::Truncate);
}

// What a longer reading has left behind the new one stays.
bool overwrite(const QString &path, const QByteArray &content)
{
    return writeOpened(path, content, QIODevice::ReadWrite);
}

// QFile::rename() would refuse to replace the file.
bool renameOver(const QString &path, const QByteArray &content)
{
    const QByteArray name = QFile::encodeName(path);
    return truncateAndWrite(path + ".new", content)
        && std::rename(name + ".new", name.constData()) == 0;
}

const QMap<QString, Write> writes = { { "truncate", truncateAndWrite },
                                      { "overwrite", overwrite },
                                      { "rename", renameOver } };

} // namespace

Driver::Driver(Wheel wheel, const DriverOptions &options)
    : wheel(std::move(wheel)), options(options), noise(options.seed), decoder(QByteArray())
{
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, SIGNAL(timeout()), this, SLOT(writeNext()));
}

QString Driver::start()
{
    const QString folder = QDir(options.root).filePath(filesFolder);
    if (!QDir(folder).exists())
        return QString("there is no folder %1; --root names the folder above media").arg(folder);
    const QMap<QString, QByteArray> firstContents = { { readingFile, "" }, { flagFile, "0" } };
    for (const QString &name : firstContents.keys()) {
        if (!QFile::exists(path(name)) && !truncateAndWrite(path(name), firstContents.value(name)))
            return QString("can't write %1").arg(path(name));
    }
    return QString();
}

QStringList Driver::waysOfWriting()
{
    return writes.keys();
}

bool Driver::setWriting(const QString &way)
{
    if (writes.contains(way))
        options.writing = way;
    return options.writing == way;
}

bool Driver::write(const QByteArray &content)
{
    return writes.value(options.writing)(path(readingFile), content);
}

void Driver::hold(const WheelKey &key)
{
    press = std::make_unique<Press>(wheel, key, &noise);
    decoder = isLearning() ? Decoder(QByteArray()) : configuration();
    timer.start(period());
    writeNext();
}

void Driver::release()
{
    timer.stop();
    const Measurement released = press->released();
    press.reset();
    writeReading(released, 0);
}

void Driver::writeNext()
{
    const Measurement measurement = press->next();
    writeReading(measurement, decoder.decode(measurement));
}

void Driver::writeReading(const Measurement &measurement, int decodedCode)
{
    const QByteArray text = readingText(measurement);
    if (write(text))
        emit wrote(text, decodedCode);
    else
        emit failed(QString("can't write %1").arg(path(readingFile)));
}

QByteArray Driver::flag() const
{
    QFile file(path(flagFile));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Decoder Driver::configuration() const
{
    QFile file(path(configurationFile));
    return Decoder(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

Measurement Driver::settledPress(const WheelKey &key)
{
    return Press(wheel, key, &noise).settled();
}

QString Driver::path(const QString &name) const
{
    return QDir(options.root).filePath(QString("%1/%2").arg(filesFolder, name));
}

QByteArray readingText(const Measurement &measurement)
{
    const QString payload = QString("%1,%2,%3,%4")
                                .arg(measurement.line)
                                .arg(measurement.adc[0])
                                .arg(measurement.adc[1])
                                .arg(measurement.adc[2]);
    return QString("%1:%2").arg(payload.size()).arg(payload).toLatin1();
}
