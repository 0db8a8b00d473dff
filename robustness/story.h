#pragma once

#include "windowprobe.h"

#include <QMultiMap>
#include <QStringList>

#include <array>
#include <climits>
#include <memory>
#include <random>

constexpr int latestTimeOut = 4200; // Qt may let a timer of 4000 ms come 5 percent late

using Values = std::array<int, 4>; // key line and three converter values

// What the samples that one key was given since its selection allow it to learn.
class Range
{
public:
    void add(const Values &values);
    bool contains(const QString &record) const;

private:
    Values low{ INT_MAX, INT_MAX, INT_MAX, INT_MAX };
    Values high{ INT_MIN, INT_MIN, INT_MIN, INT_MIN };
};

// Taps, readings and time in an order that the seed decides, on a new unit. After every step it
// checks what must always hold.
class Story
{
public:
    explicit Story(unsigned seed);

    QString tell(int stepCount); // the fault and the steps before it, or an empty text
    int learnedKeys() const { return learnings; }

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    bool oneIn(int number) { return below(number) == 0; }
    int anyKey();

    void openWindow();
    void closeWindow();
    void takeStep();
    void tapKey();
    void tapSave();
    void tapClear();
    void answer();
    bool endsProgram(QPushButton *button);
    void giveSample();
    void giveRelease();
    void giveInvalid();
    void give(const Values &values);
    void letTimePass();

    void require(bool holds, const QString &what);
    void checkRecords();
    void checkSelections();
    void checkEnd();

    std::mt19937 random;
    HeadUnit unit;
    std::unique_ptr<KeyMainWindowProbe> probe;
    QMap<int, Values> centres; // what the next samples of a key are near to
    QMap<int, Range> ranges;
    QMap<int, QString> known; // the records after the last step
    QMultiMap<int, qint64> timeOuts;
    int tapped = 0; // 0 for save and clear
    int released = 0;
    int learnings = 0;
    bool yes = false;
    QStringList steps;
    QString fault;
};
