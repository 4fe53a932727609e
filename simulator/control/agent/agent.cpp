#include "simulator/control/agent/agent.hpp"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <exception>
#include <string>
#include <system_error>

#include "simulator/control/agent/requests.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

using nlohmann::json;

/// Keeps the clock in step with real time.
class LiveClock {
 public:
  void catchUp() {
    const std::int64_t now = clock::realTime();
    const std::int64_t passed = std::max<std::int64_t>(now - last_, 0);
    last_ = now;
    advanceClock(passed);
  }
  /// Milliseconds until work is due, as `poll` wants them.
  static int timeout() {
    const auto due = nextDueTime();
    if (!due) return -1;
    constexpr std::int64_t millisecond = 1'000'000;
    const std::int64_t left = std::max<std::int64_t>(*due - clock::now(), 0);
    return static_cast<int>(std::min<std::int64_t>((left + millisecond - 1) / millisecond, INT_MAX));
  }

 private:
  std::int64_t last_ = clock::realTime();
};

void write(int socket, const std::string& text) {
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t size = ::write(socket, text.data() + written, text.size() - written);
    if (size < 0 && errno != EINTR) throw std::system_error(errno, std::generic_category(), "answering the driver");
    if (size > 0) written += static_cast<std::size_t>(size);
  }
}

json answerTo(const std::string& line) {
  const json request = json::parse(line, nullptr, false);
  if (!request.is_object()) return {{"error", "The request is no JSON object"}};
  try {
    json value = perform(request);
    runDueWork();
    return {{"value", std::move(value)}};
  } catch (const std::exception& error) {
    return {{"error", error.what()}};
  }
}

// Answers the whole lines and leaves the rest.
void answerLines(int socket, std::string& received) {
  for (std::size_t end; (end = received.find('\n')) != std::string::npos; received.erase(0, end + 1)) {
    const AutoreleasePool pool;
    const json answer = answerTo(received.substr(0, end));
    write(socket, answer.dump(-1, ' ', false, json::error_handler_t::replace) + "\n");
  }
}

}  // namespace

void serve(int socket, bool liveClock) {
  LiveClock realTime;
  std::string received;
  while (true) {
    pollfd waiting{socket, POLLIN, 0};
    int ready = 0;
    {
      const AutoreleasePool pool;
      ready = poll(&waiting, 1, liveClock ? LiveClock::timeout() : -1);
      if (liveClock) realTime.catchUp();
    }
    if (ready <= 0) continue;
    char block[65536];
    const ssize_t size = read(socket, block, sizeof block);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return;
    received.append(block, static_cast<std::size_t>(size));
    answerLines(socket, received);
  }
}

}  // namespace sim
