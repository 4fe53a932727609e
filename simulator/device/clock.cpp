#include "simulator/device/clock.hpp"

#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

namespace sim::clock {
namespace {
constexpr std::int64_t second = 1'000'000'000;
std::int64_t current = 0;
}  // namespace

std::int64_t realTime() {
  timespec time{};
  syscall(SYS_clock_gettime, CLOCK_REALTIME, &time);
  return time.tv_sec * second + time.tv_nsec;
}

std::int64_t now() { return current != 0 ? current : realTime(); }

void set(std::int64_t nanoseconds) { current = nanoseconds; }

}  // namespace sim::clock

// Foundation takes the time from the C library; the process's own definition comes before that one.
extern "C" int gettimeofday(timeval* time, void*) noexcept {
  const std::int64_t now = sim::clock::now();
  time->tv_sec = now / sim::clock::second;
  time->tv_usec = now % sim::clock::second / 1000;
  return 0;
}
