#pragma once

#include "keymainwindow.h"

#include <QByteArray>
#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

constexpr char readingPath[] = "media/flash/nvm/swc_keys";
constexpr char flagPath[] = "media/flash/nvm/swc_flags";
constexpr char configurationPath[] = "media/flash/nvm/direction.json";
constexpr char backupPath[] = "media/flash/nvm/direction.bak";
constexpr char settingsPath[] = "media/flash/nvm/Corvane/UserData.ini";

// The clock that Qt's timers read stands still until a test moves it. A test therefore gives the
// same result on a busy machine, and four seconds pass at once.
void pass(int milliseconds);

void handleEvents(); // until none is left

extern QSize screenSize; // all of it available; 800 x 480 on a new head unit

void write(const QString &path, const QByteArray &content);
QByteArray read(const QString &path); // null if the file is missing

// The debug lines since the last call, without the tag [swc_print]. N stands for the number of the
// source line.
QStringList takeLog();

QList<QLabel *> shownNotices();

// A directory that stands in for the root of a head unit, with the driver's files in it.
class HeadUnit
{
public:
    explicit HeadUnit(const QByteArray &configuration = QByteArray());
    ~HeadUnit();

private:
    const QTemporaryDir folder;
    const QtMessageHandler previousHandler;
};

enum Key { Mute = 149, Down = 154, Back = 250, Home = 314 };

// The names of the four style sheets of a key.
const QString Gray("gray");
const QString Blue("blue");
const QString Green("green");
const QString GreenAtStart("green at start");

// The window on a head unit of its own, with a view of what it has learned.
class LearningWindow : public HeadUnit, public KeyMainWindow
{
public:
    explicit LearningWindow(const QByteArray &configuration = QByteArray());

    // The user.
    void tap(int code);
    int save(); // returns the exit code
    QString clear(); // answers Yes, returns the question

    // The driver.
    void measure(int keyLine, int adc1, int adc2, int adc3);
    void release() { measure(2, 4095, 4095, 4095); }
    void writeText(const QByteArray &text); // all that its file holds

    void learn(int code, const QString &record) { mapSwcKeys.insert(code, record); }

    QString colourOf(int code) const; // the style sheet itself if it is none of the four
    QString notice() const; // colour and text, empty if there is none

    QString learned(int code) const { return mapSwcKeys.value(code); }
    int learnedCount() const { return mapSwcKeys.size(); }
    QList<int> waiting() const { return clickAndValidKeys.toList(); }
    QStringList samples() const { return mapSampleKeys.values(); }
    QList<int> sampleNumbers() const { return mapSampleKeys.keys(); }
    QString lastSample() const { return strSampleKey; }
    QPushButton *button(int code) const { return mapButtonKeys.key(code); }
    QList<int> codes() const { return mapButtonKeys.values(); }
};
