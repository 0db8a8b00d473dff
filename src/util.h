#pragma once

class Util
{
public:
    // Returns the number of the system language in the settings file; 1 is Chinese. Returns 0 if
    // there is none or it is not a number.
    int getLanguageIdx();
};
