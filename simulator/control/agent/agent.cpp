#include "simulator/control/agent/agent.hpp"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "simulator/control/agent/requests.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/objc.hpp"
#include "simulator/runtime/waiting.hpp"

// The C library's header says nothing of C++.
extern "C" {
#include <sys/pidfd.h>
}

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
    const std::int64_t left = std::max<std::int64_t>(*due - clock::passed(), 0);
    return static_cast<int>(std::min<std::int64_t>((left + millisecond - 1) / millisecond, INT_MAX));
  }

 private:
  std::int64_t last_ = clock::realTime();
};

/// The requests of the driver, and the answers to them.
class Conversation {
 public:
  explicit Conversation(int socket) : socket_(socket) {}

  /// Takes what the driver has sent; NO when it has gone.
  bool receive() {
    char block[65536];
    ssize_t size = 0;
    while ((size = read(socket_, block, sizeof block)) < 0 && errno == EINTR) continue;
    if (size > 0) received_.append(block, static_cast<std::size_t>(size));
    return size > 0;
  }

  /// Answers the whole lines and leaves the rest.
  void answerAll() {
    while (const auto line = nextLine()) {
      const AutoreleasePool pool;
      const json request = take(*line);
      goesOn_ = request.is_object() && request.value("goOn", json()) == true;
      const json answer = answerTo(request);
      if (!std::exchange(answered_, false)) write(answer);
    }
  }

  /// Waits for a program. A driver that does not wait too gets the answer to its request at once, and may look at
  /// the screen meanwhile; whatever else it asks for has to wait.
  void waitFor(int program) {
    if (goesOn_ && !std::exchange(answered_, true)) write({{"value", nullptr}, {"seconds", 0}});
    bool listens = answered_;
    while (true) {
      const short driver = listens ? POLLIN | POLLRDHUP : POLLRDHUP;
      pollfd waiting[] = {{program, POLLIN, 0}, {socket_, driver, 0}};
      if (poll(waiting, 2, -1) <= 0) continue;
      if (waiting[0].revents != 0) return;
      if ((waiting[1].revents & (POLLRDHUP | POLLHUP)) != 0) endWith(program);
      listens = receive() && answerLooks();
    }
  }

 private:
  // Nobody is left to wait for.
  [[noreturn]] static void endWith(int program) {
    pidfd_send_signal(program, SIGKILL, nullptr, 0);
    std::_Exit(EXIT_SUCCESS);
  }

  std::optional<std::size_t> nextLine() const {
    const std::size_t end = received_.find('\n');
    return end != std::string::npos ? std::optional(end) : std::nullopt;
  }

  json take(std::size_t end) {
    json request = json::parse(received_.substr(0, end), nullptr, false);
    received_.erase(0, end + 1);
    return request;
  }

  // Answers the looks at the screen that come first; NO when something else has come.
  bool answerLooks() {
    while (const auto line = nextLine()) {
      const json request = json::parse(received_.substr(0, *line), nullptr, false);
      if (!request.is_object() || request.value("verb", json()) != "screen") return false;
      const AutoreleasePool pool;
      write({{"value", perform(take(*line))}, {"seconds", 0}});
    }
    return true;
  }

  static json answerTo(const json& request) {
    if (!request.is_object()) return {{"error", "The request is no JSON object"}};
    try {
      return answer(request);
    } catch (const std::exception& error) {
      return {{"error", error.what()}};
    }
  }

  void write(const json& answer) const {
    const std::string text = answer.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
    for (std::size_t written = 0; written < text.size();) {
      const ssize_t size = ::write(socket_, text.data() + written, text.size() - written);
      if (size < 0 && errno != EINTR) throw std::system_error(errno, std::generic_category(), "answering the driver");
      if (size > 0) written += static_cast<std::size_t>(size);
    }
  }

  int socket_;
  std::string received_;
  bool goesOn_ = false;    // the driver goes on as soon as its request waits for a program
  bool answered_ = false;  // the request being performed has its answer
};

}  // namespace

void serve(int socket, bool liveClock) {
  LiveClock realTime;
  Conversation conversation(socket);
  setWaiting([&](int program) { conversation.waitFor(program); });
  while (true) {
    pollfd waiting{socket, POLLIN, 0};
    int ready = 0;
    {
      const AutoreleasePool pool;
      ready = poll(&waiting, 1, liveClock ? LiveClock::timeout() : -1);
      if (liveClock) realTime.catchUp();
    }
    if (ready <= 0) continue;
    if (!conversation.receive()) return;
    conversation.answerAll();
  }
}

}  // namespace sim
