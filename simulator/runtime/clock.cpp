#include "simulator/runtime/clock.hpp"

#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace sim::clock {
namespace {
constexpr std::int64_t second = 1'000'000'000;
// A phone has been up for a while when its home screen comes.
std::int64_t sinceBegin = 60 * second;

// The time at which the count began, by the clock as it is set now.
std::int64_t& begin() {
  static std::int64_t time = realTime() - sinceBegin;
  return time;
}
}  // namespace

std::int64_t passed() { return sinceBegin; }

void passUntil(std::int64_t moment) { sinceBegin = std::max(sinceBegin, moment); }

std::int64_t now() { return begin() + sinceBegin; }

void set(std::int64_t nanoseconds) { begin() = nanoseconds - sinceBegin; }

std::int64_t time(double seconds) { return std::llround(seconds * 1e6) * 1000; }

std::int64_t realTime() {
  timespec time{};
  syscall(SYS_clock_gettime, CLOCK_REALTIME, &time);
  return time.tv_sec * second + time.tv_nsec;
}

}  // namespace sim::clock

// Foundation takes the time from the C library; the process's own definition comes before that one.
extern "C" int gettimeofday(timeval* time, void*) noexcept {
  const std::int64_t now = sim::clock::now();
  time->tv_sec = now / sim::clock::second;
  time->tv_usec = now % sim::clock::second / 1000;
  return 0;
}
