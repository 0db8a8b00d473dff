#pragma once

#include "driver.h"

#include <QObject>
#include <QStringList>

class QTextStream;

// Does the lines of a script one by one. The event loop runs while a command takes time.
class Script : public QObject
{
    Q_OBJECT

public:
    Script(Driver *driver, Wheel wheel, QTextStream *output);

    static QString help();

    // Gives what is wrong with the line or the expectation in it that failed, else nothing.
    QString execute(const QString &line);

    // Does all lines of a file or pipe, each as soon as it is complete, and answers "ok" to each.
    // Stops at the first fault and gives it, with the number of its line.
    QString run(int descriptor);

private slots:
    void onFailed(const QString &fault) { writeFault = fault; }

private:
    using Handler = QString (Script::*)(const QStringList &words);
    struct Command
    {
        const char *name;
        const char *usage;
        const char *meaning;
        int fewestWords;
        int mostWords;
        Handler handler;
    };
    static const QVector<Command> commands;

    QString press(const QStringList &words);
    QString hold(const QStringList &words);
    QString release(const QStringList &words);
    QString wait(const QStringList &words);
    QString expectFlag(const QStringList &words);
    QString decode(const QStringList &words);
    QString setWriting(const QStringList &words);
    QString decodeAll(const Decoder &decoder);

    Driver *driver;
    const Wheel wheel;
    QTextStream *output;
    QString writeFault;
};
