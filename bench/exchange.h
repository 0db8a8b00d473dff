#pragma once

#include <QByteArray>
#include <QString>

class QPushButton;

// The key driver of the benchmarks: it writes a reading and waits until it is answered.

constexpr char release[] = "16:2,4095,4095,4095";

// Samples that all differ, are of one length, and lie further apart than colliding ones.
QString payload(int index);
QByteArray reading(int index);

// From now on a stored sample counts as an answer, and the frame that shows a green button.
void watchAnswers();

void answer(); // for who stores no sample
void awaitGreen(QPushButton *button); // null: no frame is an answer

void take(const QByteArray &text);

// Writes from another thread, as soon as the event loop sleeps. Gives the microseconds from the
// write to the answer.
double waitFor(const QByteArray &text);
