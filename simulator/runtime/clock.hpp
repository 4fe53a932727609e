// The home-screen process's two clocks. One tells how much time has passed: the main queue's delays and delayed
// messages follow it, and it runs forwards only. The other tells what time it is: `NSDate` follows it, and a user may
// set it, backwards too. Both stand still until time is let pass.
#pragma once

#include <cstdint>

namespace sim::clock {

/// Whether the clock can be set to this time, in seconds since 1970. It counts nanoseconds in 64 bits; what it has of
/// them beyond 2223 is for running on.
constexpr bool canStandAt(double seconds) { return seconds >= 0 && seconds < 8e9; }

/// Nanoseconds that have passed, more than none.
std::int64_t passed();
/// Lets time pass up to that moment, without running anything. A moment that is over changes nothing.
void passUntil(std::int64_t moment);

/// What time it is: nanoseconds since 1970-01-01 00:00 UTC.
std::int64_t now();
/// Sets the time, forwards or backwards. No time passes.
void set(std::int64_t nanoseconds);
/// A time in seconds since 1970 as nanoseconds: whole microseconds, since a number of that size holds no more.
std::int64_t time(double seconds);

/// The machine's own time in nanoseconds since 1970, which this clock does not hide from this function.
std::int64_t realTime();

}  // namespace sim::clock
