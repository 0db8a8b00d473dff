#include "program.h"

#include "driver.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

constexpr char logName[] = "/log.txt";

void startProgram(const QStringList &command, const QString &root, QProcess *program)
{
    if (command.isEmpty() || program->state() != QProcess::NotRunning)
        return;
    program->setWorkingDirectory(root);
    program->setProcessChannelMode(QProcess::MergedChannels);
    program->setStandardOutputFile(root + logName);
    program->start(command.first(), command.mid(1));
}

bool hasFailed(const QProcess &program)
{
    return program.error() == QProcess::FailedToStart
        || program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0;
}

QString outcomeOf(const QProcess &program, const Driver &driver)
{
    QFile log(program.workingDirectory() + logName);
    if (hasFailed(program))
        return program.program() + " failed, its log is " + log.fileName();
    // In the program's own spelling. The last tap has ended it.
    const QByteArray lines = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
    const bool saved = lines.lastIndexOf(" save all keys") > lines.lastIndexOf(" canel all keys");
    if (!saved)
        return driver.contentOf("direction.bak").isEmpty() ? "No: nothing is saved"
                                                           : "No: the backup is back";
    const QJsonObject configuration = driver.configuration();
    const int keys = configuration.value("direction0").toArray().size()
        + configuration.value("direction1").toArray().size();
    return QString("Saved %1 %2").arg(keys).arg(keys == 1 ? "key" : "keys");
}
