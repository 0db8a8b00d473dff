#include "program.h"

#include "driver.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include <utility>

Program::Program(QStringList command, const QString &root)
    : command(std::move(command)), log(QDir(root).filePath("log.txt"))
{
    process.setWorkingDirectory(root);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardOutputFile(log);
}

Program::~Program()
{
    process.terminate();
    process.waitForFinished();
}

void Program::start()
{
    if (hasEnded())
        process.start(command.first(), command.mid(1));
}

bool Program::hasFailed() const
{
    return process.error() == QProcess::FailedToStart
        || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0;
}

QString Program::outcome(const Driver &driver) const
{
    if (hasFailed())
        return QString("%1 failed, its log is %2").arg(command.join(' '), log);
    // In the program's own spelling. The last tap has ended it.
    QFile file(log);
    const QByteArray lines = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const bool saved = lines.lastIndexOf(" save all keys") > lines.lastIndexOf(" canel all keys");
    if (!saved)
        return driver.contentOf("direction.bak").isEmpty() ? "No: nothing is saved"
                                                           : "No: the backup is back";
    const QJsonObject configuration = driver.configuration();
    const int keys = configuration.value("direction0").toArray().size()
        + configuration.value("direction1").toArray().size();
    return QString("Saved %1 %2").arg(keys).arg(keys == 1 ? "key" : "keys");
}
