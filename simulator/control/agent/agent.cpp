#include "simulator/control/agent/agent.hpp"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "simulator/control/agent/driver.hpp"
#include "simulator/control/agent/requests.hpp"
#include "simulator/control/agent/sign_of_life.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/objc.hpp"
#include "simulator/runtime/waiting.hpp"

namespace sim {
namespace {

using nlohmann::json;

constexpr int protocolVersion = 1;

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

/// A request that is being performed. It gets one answer, at the latest when an exception passes by.
class Asked {
 public:
  Asked(const json& request, Asked*& innermost) : innermost_(innermost), outer_(std::exchange(innermost, this)) {
    if (!request.is_object()) return;
    if (const auto id = request.find("id"); id != request.end() && id->is_number_integer()) id_ = *id;
    if (const auto members = request.find("members"); members != request.end() && members->is_object())
      goesOn_ = members->value("go-on", json()) == true;
  }
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;
  ~Asked() {
    innermost_ = outer_;
    reply({{"error", "An exception passed by"}, {"kind", "raised"}});
  }

  void reply(json answer) {
    if (std::exchange(answered_, true)) return;
    if (!id_.is_null()) answer["id"] = id_;
    driver::tell(answer);
  }
  /// A driver that goes on does not wait for the program that the home screen now waits for.
  void waits() {
    if (goesOn_) reply({{"value", nullptr}, {"seconds", 0}});
  }

 private:
  Asked*& innermost_;
  Asked* outer_;
  json id_;
  bool goesOn_ = false;
  bool answered_ = false;
};

bool isGesture(const json& request) {
  const auto& gestures = verbGroups().front().verbs;
  const json verb = request.is_object() ? request.value("verb", json()) : json();
  return std::any_of(gestures.begin(), gestures.end(), [&](const Verb& each) { return verb == each.name; });
}

/// The main thread's run loop, as far as the driver, the clock and programs are concerned. It nests: while a request
/// waits for a program, another turn answers the next.
class RunLoop {
 public:
  RunLoop(int socket, bool liveClock) : socket_(socket) {
    if (liveClock) clock_.emplace();
  }

  /// Waits for requests, due work or the program's end, whatever comes first, and serves it. NO when the driver has
  /// gone.
  bool turn(int program = -1) {
    const AutoreleasePool pool;
    pollfd waiting[] = {{socket_, POLLIN, 0}, {program, POLLIN, 0}};
    const int ready = poll(waiting, 2, timeout(program >= 0));
    if (clock_) clock_->catchUp();
    if (ready > 0 && waiting[0].revents != 0) {
      if (!receive()) return false;
      answerAll();
    }
    tellNews();
    return true;
  }

  void waitFor(int program, const std::string& name) {
    struct Told {
      explicit Told(const std::string& program) { driver::tell({{"push", "waiting for"}, {"program", program}}); }
      Told(const Told&) = delete;
      Told& operator=(const Told&) = delete;
      ~Told() { driver::tell({{"push", "waited for"}}); }
    } const told(name);
    if (asked_ != nullptr) asked_->waits();
    runDueWork();
    while (!hasEnded(program))
      if (!turn(program)) leave();
  }

 private:
  /// Nobody is left to wait for.
  [[noreturn]] static void leave() {
    endProgramsWaitedFor();
    std::_Exit(EXIT_SUCCESS);
  }

  static bool hasEnded(int program) {
    pollfd waiting{program, POLLIN, 0};
    return poll(&waiting, 1, 0) > 0;
  }

  // A turn a second, when a program is waited for, is the sign of life that is due.
  int timeout(bool forProgram) const {
    constexpr int second = 1000;
    const int due = clock_ ? LiveClock::timeout() : -1;
    if (!forProgram) return due;
    return due < 0 ? second : std::min(due, second);
  }

  // Takes what the driver has sent, unless a turn within this one already has; NO when it has gone.
  bool receive() {
    char block[65536];
    const ssize_t size = recv(socket_, block, sizeof block, MSG_DONTWAIT);
    if (size > 0) received_.append(block, static_cast<std::size_t>(size));
    return size > 0 || (size < 0 && (errno == EAGAIN || errno == EINTR));
  }

  // Answers the whole lines and leaves the rest.
  void answerAll() {
    for (std::size_t end = 0; (end = received_.find('\n')) != std::string::npos;) {
      const AutoreleasePool pool;
      const json request = json::parse(received_.substr(0, end), nullptr, false);
      received_.erase(0, end + 1);
      Asked asked(request, asked_);
      changed_ = changed_ || isGesture(request);
      asked.reply(answer(request));
    }
  }

  void tellNews() {
    const bool changed = std::exchange(changed_, false) || std::exchange(seenWork_, dueWorkDone()) != dueWorkDone();
    const auto& events = homeState().events;
    const std::size_t first = std::exchange(toldEvents_, events.size());
    if (!driver::subscribed()) return;
    for (std::size_t i = first; i < events.size(); ++i) driver::tell({{"push", "event"}, {"text", events[i]}});
    if (changed) driver::tell({{"push", "changed"}});
  }

  int socket_;
  std::optional<LiveClock> clock_;  // that of a home screen whose clock runs by itself
  std::string received_;
  Asked* asked_ = nullptr;  // the innermost request that is being performed
  bool changed_ = false;    // something was done in this turn
  std::size_t toldEvents_ = 0;
  unsigned long seenWork_ = dueWorkDone();
};

}  // namespace

void serve(int socket, bool liveClock) {
  driver::connect(socket);
  RunLoop runLoop(socket, liveClock);
  setWaiting([&](int program, const std::string& name) { runLoop.waitFor(program, name); });
  setDarwinCarrier([](const std::string& name) {
    driver::tell({{"push", "posted"}, {"name", name}, {"uptime", clock::passed()}});
  });
  driver::tell({{"push", "ready"}, {"version", protocolVersion}});
  giveSignsOfLife();
  while (runLoop.turn()) continue;
}

}  // namespace sim
