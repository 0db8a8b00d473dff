#pragma once

#include <QLabel>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QVector>

class Driver;
class QPushButton;
class QTimerEvent;

// A steering wheel whose keys are pressed with the mouse. Its display shows the flag, the last
// reading and what it is decoded as; once the program has ended, a click on it starts it again.
class WheelWindow : public QLabel
{
    Q_OBJECT

public:
    // The command is the head unit's program, or empty. It is started in the root folder, with its
    // output in log.txt there. The caller keeps the driver.
    WheelWindow(Driver *driver, QStringList command);

    ~WheelWindow() override; // ends the program

protected:
    void timerEvent(QTimerEvent *event) override;

private slots:
    void startProgram();
    void takeFocus(); // so that Space starts the program again
    void pressKey();
    void releaseKey();

private:
    QString endOfProgram() const; // empty if it is running or there is none

    Driver *driver;
    const QStringList command;
    QProcess program;
    QPushButton *display;
    QVector<QPushButton *> buttons; // one for each key
};
