#pragma once

class Util
{
public:
    // Returns the system language index of the settings file; 1 is Chinese. Returns 0 if the
    // setting is missing or is not a number.
    int getLanguageIdx();
};
