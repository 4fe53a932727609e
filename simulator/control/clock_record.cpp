#include "simulator/control/clock_record.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <thread>

namespace sim {
namespace {

/// The clock that files get their times from, which is coarser than others.
double fileSystemTime() {
  timespec time{};
  clock_gettime(CLOCK_REALTIME_COARSE, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// The time zone of this process, for a while.
class TimeZone {
 public:
  explicit TimeZone(const std::string& name) {
    if (const char* value = std::getenv("TZ")) previous_ = value;
    set(name);
  }
  ~TimeZone() { set(previous_); }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  static void set(const std::optional<std::string>& name) {
    if (name) setenv("TZ", name->c_str(), 1);
    else unsetenv("TZ");
    tzset();
  }

  std::optional<std::string> previous_;
};

}  // namespace

void ClockRecord::begin(bool runs) {
  runs_ = runs;
  entries_.clear();
}

void ClockRecord::note(double phone) {
  if (!runs_ && !entries_.empty()) {
    if (entries_.back().phone == phone) return;
    // What was written until now has an earlier time than the record's next entry.
    const double last = fileSystemTime();
    while (fileSystemTime() <= last) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  entries_.push_back({fileSystemTime(), phone});
}

double ClockRecord::at(double machine) const {
  const auto later = std::upper_bound(entries_.begin(), entries_.end(), machine,
                                      [](double time, const Entry& entry) { return time < entry.machine; });
  if (entries_.empty()) return machine;
  if (later == entries_.begin()) return later->phone - (later->machine - machine);
  const Entry& entry = *std::prev(later);
  return entry.phone + (runs_ ? machine - entry.machine : 0);
}

std::string shownTime(double seconds, const std::optional<std::string>& timeZone) {
  std::optional<TimeZone> zone;
  if (timeZone) zone.emplace(*timeZone);
  const auto time = static_cast<std::time_t>(std::floor(seconds));
  std::tm parts{};
  std::array<char, 40> text{};
  localtime_r(&time, &parts);
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

}  // namespace sim
