#pragma once

// All times in milliseconds.
namespace Timings {

constexpr int selection = 4000; // from the tap until it times out
constexpr int noticeFade = 1000; // in or out
constexpr int noticeHold = 2000; // from the call until the fade-out

} // namespace Timings
