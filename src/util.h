#pragma once

#include <QByteArray>
#include <QString>

class Util
{
public:
    // The system language index of the settings file, 0 where it can't be found. 1 is Chinese.
    // Only the first megabyte of the file is looked at.
    int getLanguageIdx();
};

// The first of the settings' lines that begins with the language key, white space simplified;
// empty if there is none.
QString languageLine(const QByteArray &settings);

// The number between the first "=" of the line and the next. 0 where it is none or there is no
// "=": that is what a missing setting means.
int languageIndexOf(const QString &line);
