// The home-screen process's clock. Everything in the process that asks for the time follows it: `NSDate`,
// the run loop's timers, the main queue's delays. It stands still until it is advanced.
#pragma once

#include <cstdint>

namespace sim::clock {

/// Whether the clock can be set to this time, in seconds since 1970. It counts nanoseconds in 64 bits; what it has of
/// them beyond 2223 is for running on.
constexpr bool canStandAt(double seconds) { return seconds >= 0 && seconds < 8e9; }

/// Nanoseconds since 1970-01-01 00:00 UTC.
std::int64_t now();
/// Sets the clock, forwards or backwards, without running anything.
void set(std::int64_t nanoseconds);
/// The machine's own time, which the clock does not hide from this function.
std::int64_t realTime();

}  // namespace sim::clock
