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
    process.start(command.first(), command.mid(1));
}

bool Program::hasFailed() const
{
    return process.error() == QProcess::FailedToStart
        || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0;
}

QString Program::outcome(const Driver &driver) const
{
    if (process.error() == QProcess::FailedToStart)
        return QString("can't start %1: %2").arg(command.first(), process.errorString());
    if (hasFailed())
        return "the program failed, see " + log;
    QFile file(log);
    const QByteArray lines = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    // Its own spelling. The tap that ends the program is the last one.
    if (lines.lastIndexOf(" canel all keys") > lines.lastIndexOf(" save all keys"))
        return driver.contentOf("direction.bak").isEmpty() ? "No: nothing is saved"
                                                           : "No: the backup is back";
    const QJsonObject configuration = driver.configuration();
    const int keys = configuration.value("direction0").toArray().size()
        + configuration.value("direction1").toArray().size();
    return QString("Saved %1 key%2").arg(keys).arg(keys == 1 ? "" : "s");
}
