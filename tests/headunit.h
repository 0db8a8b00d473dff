#pragma once

#include "keymainwindow.h"
#include "readingfile.h"

#include <QByteArray>
#include <QLabel>
#include <QList>
#include <QMap>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>
#include <QtTest>

#include <functional>

constexpr char readingPath[] = "media/flash/nvm/swc_keys";
constexpr char flagPath[] = "media/flash/nvm/swc_flags";
constexpr char configurationPath[] = "media/flash/nvm/direction.json";
constexpr char backupPath[] = "media/flash/nvm/direction.bak";
constexpr char settingsPath[] = "media/flash/nvm/Corvane/UserData.ini";

// The clock stands still until the test moves it: what happens depends on the test alone, and hours
// pass in no time.
void handleEvents(); // until there are none
void pass(int duration); // in milliseconds

void write(const QString &path, const QByteArray &content);
QByteArray read(const QString &path); // null where the file is missing

// The rows of a test whose input and outcome are texts: below its title, tables/NAME.txt has a line
// for each, "name: input => expected".
void addRows(const QString &table);

// The debug lines since the last call, each ended by "|". LINE stands for the number of the source
// line that wrote it.
QString takeLog();

QList<QLabel *> notices(); // on the screen

void answer(const QString &text); // by the button with this text, by Escape where there is none

// The exit code of the event loop in which the button is tapped, stillRunning where that does not
// end it. The reply comes as soon as a question is open.
constexpr int stillRunning = -1;
int exitCodeOf(
    QPushButton *button, const std::function<void()> &reply = [] {});

// A folder that stands in for the root of the unit, with the driver's files in it.
struct HeadUnit
{
    explicit HeadUnit(const QByteArray &configuration = QByteArray());
    ~HeadUnit();

    const QTemporaryDir folder;
};

// A learning window, with a view of its learning state.
class KeyMainWindowProbe
{
public:
    // Steps: "314" taps that key, "touch314" does not let go of it, "2,1,2,3" measures, "up" is the
    // release, "4000ms" pass, "314=2,1,2,3" makes it a learned key, "clear" is answered by Yes,
    // "save" does not end the window, "text:7" is all that the driver's file holds, "gone" removes
    // it, and "recorrectHomeBtnStatus" is a call of that slot.
    void play(const QString &steps);

    // All that is not as at the start, for example "314 blue; waits 314; sample 0".
    QString state() const;

    KeyMainWindow window{ nullptr };
    const QMap<QPushButton *, int> &keys = window.mapButtonKeys;
    QPushButton *const save = window.btnSave;
    QPushButton *const clear = window.btnClear;
    QMap<int, QString> &learned = window.mapSwcKeys;
    const QMap<int, QString> &samples = window.mapSampleKeys;
    const QString &lastSample = window.strSampleKey;
    const QVector<int> &pending = window.clickAndValidKeys;
    Way way = Way::Truncate; // in which the driver writes
};

struct RunningUnit : HeadUnit, KeyMainWindowProbe
{
    using HeadUnit::HeadUnit;
};
