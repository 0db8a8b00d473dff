#pragma once

#include "keymainwindow.h"

#include <QByteArray>
#include <QTemporaryDir>

// A window on a head unit of its own, and a clock that stands still until the test moves it: what
// happens depends on the test alone, and hours pass in no time.

// The working directory for as long as it exists, with the files that the platform provides.
class HeadUnit
{
public:
    HeadUnit();
    ~HeadUnit();

private:
    QTemporaryDir folder;
};

class KeyMainWindowProbe
{
public:
    KeyMainWindowProbe() { window.show(); }

    const QMap<QPushButton *, int> &keys() const { return window.mapButtonKeys; }
    QPushButton *saveButton() const { return window.btnSave; }
    QPushButton *clearButton() const { return window.btnClear; }
    const QMap<int, QString> &records() const { return window.mapSwcKeys; }
    const QMap<int, QString> &samples() const { return window.mapSampleKeys; }
    const QVector<int> &pending() const { return window.clickAndValidKeys; }
    const QString &lastSample() const { return window.strSampleKey; }
    void dropSamples() { window.initSampleKeys(); }

private:
    KeyMainWindow window{ nullptr };
};

enum class Way { Truncated, InPieces, Overwritten, Renamed };
constexpr int wayCount = 4;

// Writes the driver's file as a driver may. A text in pieces is cut before its fourth field.
void writeReading(const QByteArray &payload, Way way);

qint64 now(); // in milliseconds
void handleEvents(); // until there are none
void pass(int duration); // in milliseconds
void doWithoutScreen(); // and without the log; before the QApplication

int residentKilobytes();
int openFiles();
