#pragma once

#include <QObject>
#include <QTimerEvent>

#include <functional>
#include <utility>

// Does something once, in the event loop.
class Later : public QObject
{
public:
    Later(int msec, std::function<void()> what) : action(std::move(what)) { startTimer(msec); }

private:
    void timerEvent(QTimerEvent *event) override
    {
        killTimer(event->timerId());
        action();
    }
    std::function<void()> action;
};
