#pragma once

// All times in milliseconds.
namespace Timings {

constexpr int selection = 4000; // a tapped key waits this long for its result
constexpr int noticeFade = 1000; // in, and out again
constexpr int noticeHold = 2000; // from the call until the fade-out begins

} // namespace Timings
