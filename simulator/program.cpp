#include "program.h"

#include "driver.h"

#include <QByteArray>
#include <QProcess>

bool hasFailed(const QProcess &program)
{
    return program.error() == QProcess::FailedToStart
        || program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0;
}

QString outcomeOf(const QProcess &program, const Driver &driver)
{
    const QString logPath = program.workingDirectory() + "/log.txt";
    if (hasFailed(program))
        return program.program() + " failed, its log is " + logPath;
    // In the program's own spelling. The last tap has ended it.
    const QByteArray log = contentOfFile(logPath);
    if (log.lastIndexOf(" save all keys") > log.lastIndexOf(" canel all keys")) {
        const int keys = driver.contentOf("direction.json").count("direction_event");
        return QString(keys == 1 ? "Saved %1 key" : "Saved %1 keys").arg(keys);
    }
    const bool backup = !driver.contentOf("direction.bak").isEmpty();
    return backup ? "No: the backup is back" : "No: nothing is saved";
}
