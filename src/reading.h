#pragma once

#include <QString>

#include <array>

constexpr int channelCount = 3; // converter values in a reading

// The driver's two groups of keys.
constexpr int keyLine2 = 2;
constexpr int keyLine3 = 3;

constexpr int releaseValue = 4095; // the highest value of a 12-bit converter

// One measurement of the key driver: a key line and three 12-bit converter values.
struct Reading
{
    QString payload; // the text that the count covers; may have further fields
    int keyLine = 0;
    std::array<int, channelCount> adc{};
};

enum class ReadingClass {
    Sample, // a key is held: all values are in 0..4094
    Release, // the key was released: all values are 4095
    Invalid,
};

enum class ReadingFault { None, NoColon, TooFewFields };

// Parses "<count>:<payload>", for example "16:2,1200,4094,4094". Sets `reading` only if the result
// is ReadingFault::None. A field that is not a decimal int becomes 0.
ReadingFault parseReading(const QString &text, Reading *reading);

ReadingClass classify(const Reading &reading);
