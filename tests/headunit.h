#pragma once

#include <QByteArray>
#include <QLabel>
#include <QList>
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

// The clock that Qt's timers and animations read stands still until a test moves it. A test
// therefore gives the same result on a busy machine, and four seconds pass at once.
void pass(int milliseconds);

void handleEvents(); // until none is left

// The size of the screen, of which panels take nothing; 800 x 480 on a new head unit.
void setScreen(const QSize &size);

void write(const QString &path, const QByteArray &content);
QByteArray read(const QString &path); // null if the file is missing

// The debug lines since the last call. N stands for the number of the source line.
QStringList takeLog();

// The label of every notice on the screen.
QList<QLabel *> shownNotices();

// An empty directory that stands in for the root of a head unit, with the driver's files in it. It
// is the working directory of the test.
class HeadUnit
{
public:
    explicit HeadUnit(const QByteArray &configuration = QByteArray());
    ~HeadUnit();

private:
    const QTemporaryDir folder;
    const QtMessageHandler previousHandler;
};
