#pragma once

#include "headunit.h"
#include "keymainwindow.h"

#include <QList>
#include <QPushButton>
#include <QString>
#include <QStringList>

enum Key { Mute = 149, Down = 154, PlayPause = 247, Back = 250, Home = 314 };

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
    void release();
    void writeText(const QByteArray &text); // all that its file holds

    void learn(int code, const QString &record); // without a press

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
