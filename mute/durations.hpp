// For how long an application can be muted.
#pragma once

namespace mute {

/// A button of the mute sheet.
struct Duration {
  const char* title;
  double seconds;
};

// The uneven "Hour" and "Hours" are the sheet's own.
inline constexpr Duration timed[] = {
    {"For 15 Minutes", 900}, {"For 1 Hour", 3600},   {"For 2 Hour", 7200}, {"For 3 Hour", 10800},
    {"For 5 Hour", 18000},   {"For 8 Hours", 28800}, {"For 1 Day", 86400},
};
inline constexpr Duration forever{"Forever", -1};
inline constexpr Duration unmute{"Unmute", 0};

}  // namespace mute
