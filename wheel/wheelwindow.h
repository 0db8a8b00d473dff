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
// reading and what it is decoded as, and starts the head unit's program again after its end.
class WheelWindow : public QLabel
{
    Q_OBJECT

public:
    // Does not take ownership of the driver. The command, which may be empty, is started in the
    // driver's root folder, with its output in log.txt there.
    WheelWindow(Driver *driver, const QStringList &command);

    ~WheelWindow() override; // ends the program

protected:
    void timerEvent(QTimerEvent *event) override; // measures, and updates what is shown

private slots:
    void startProgram(); // unless it is running, or there is none
    void takeFocus(); // so that Space starts the program again
    void pressKey();
    void releaseKey();

private:
    QString endOfProgram() const; // empty while it is running, or if there is none

    Driver *driver;
    const QStringList command;
    QProcess program;
    QPushButton *display;
    QVector<QPushButton *> buttons; // one for each key
};
