// The mute list's file: where it is and how it is written. The home screen is its only writer.
#pragma once

#include "platform/Foundation.hpp"

namespace mute {

inline NSString* listFile() { return "/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"_ns; }
inline NSString* entriesKey() { return "entries"_ns; }
inline NSString* idKey() { return "id"_ns; }
inline NSString* timeKey() { return "timeStamp"_ns; }

/// The end of a muting that has none.
inline constexpr std::int32_t withoutEnd = -1;

/// The records; nil when there is no list of them.
inline NSArray* entriesOf(const NSDictionary* all) { return as<NSArray>(all->objectForKey(entriesKey())); }

/// When the record's muting ends, in seconds since 1970; 0 for a record without a time.
inline std::int32_t endOf(const NSDictionary* record) {
  return send<int>(numberOrText(record->objectForKey(timeKey())), "intValue"_sel);
}

/// Whether the record's application is muted at that moment, in seconds since 1970.
inline bool isInForce(const NSDictionary* record, double now) {
  const std::int32_t end = endOf(record);
  return now < end || end == withoutEnd;
}

}  // namespace mute
