#pragma once

#include <QString>

class QIODevice;

class Util
{
public:
    // The system language index of the settings file, 0 where it can't be found. 1 is Chinese.
    int getLanguageIdx();
};

// The first line of an open settings file that begins with the language key, white space
// simplified; empty if there is none.
QString languageLine(QIODevice &settings);

// The number between the first "=" of the line and the next. 0 where it is none or there is no
// "=": that is what a missing setting means.
int languageIndexOf(const QString &line);
