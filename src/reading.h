#pragma once

#include <QString>

#include <array>

constexpr int channelCount = 3; // converter values in a reading

// The driver's two groups of keys.
constexpr int keyLine2 = 2;
constexpr int keyLine3 = 3;

constexpr int releaseValue = 4095; // top of the converter's range

// One measurement of the key driver: a key line and three 12-bit converter values.
struct Reading
{
    QString payload; // the counted characters as they came, further fields included
    int keyLine = 0;
    std::array<int, channelCount> adc{};
};

enum class ReadingClass {
    Sample, // of a held key: all values in 0..4094
    Release, // the key was let go: all values 4095
    Invalid,
};

enum class ReadingFault { None, NoColon, TooFewFields };

// Parses "<count>:<payload>", for example "16:2,1200,4094,4094". `reading` is set only if
// the result is ReadingFault::None. A field that is not a decimal int counts as 0.
ReadingFault parseReading(const QString &text, Reading *reading);

ReadingClass classify(const Reading &reading);
