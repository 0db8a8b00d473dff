#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

class Driver;

// The program of the head unit as a child process, run in the unit's root folder.
class Program
{
public:
    Program(QStringList command, const QString &root);
    ~Program();

    void start(); // where there is a command, and it does not run
    bool hasEnded() const { return !command.isEmpty() && process.state() == QProcess::NotRunning; }

    // To be asked once it has ended.
    bool hasFailed() const;
    QString outcome(const Driver &driver) const; // its failure, or what a tap on save or No did

private:
    const QStringList command;
    const QString log;
    QProcess process;
};
