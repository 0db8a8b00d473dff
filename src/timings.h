#pragma once

// All times in milliseconds.
namespace Timings {

constexpr int selection = 4000; // how long a tapped key waits for its readings
constexpr int noticeFade = 1000; // to fade in, and again to fade out
constexpr int noticeHold = 2000; // from the start of the fade-in to the start of the fade-out

} // namespace Timings
