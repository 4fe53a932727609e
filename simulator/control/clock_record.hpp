// A phone's clock beside this machine's: files have the machine's time, and a person wants the phone's.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace sim {

/// What the phone's clock showed at moments of this machine's. All times are seconds since 1970.
class ClockRecord {
 public:
  /// A new record; the clock runs by itself or is moved by hand.
  void begin(bool runs);
  /// The phone's clock shows this now.
  void note(double phone);
  /// What it showed at that time of this machine, as far as it was noted. Before the record began it ran as here.
  double at(double machine) const;

 private:
  struct Entry {
    double machine, phone;
  };
  bool runs_ = false;
  std::vector<Entry> entries_;
};

/// "2024-03-07 14:05", in that time zone or in this machine's.
std::string shownTime(double seconds, const std::optional<std::string>& timeZone);

}  // namespace sim
