#pragma once

class Util
{
public:
    // The system language index of the settings file, 0 where it can't be found or is no number. 1
    // is Chinese. Only the first megabyte of the file is looked at.
    int getLanguageIdx();
};
