#include "simulator/runtime/waiting.hpp"

#include <poll.h>

#include <csignal>
#include <utility>

// The C library's header says nothing of C++.
extern "C" {
#include <sys/pidfd.h>
}

namespace sim {
namespace {

struct Program {
  int process;
  std::string name;
};

std::vector<Program>& programs() {
  static std::vector<Program> all;
  return all;
}

/// Stands in the list while it is waited for, even if an exception ends the wait.
struct Wait {
  Wait(int program, const std::string& name) { programs().push_back({program, name}); }
  Wait(const Wait&) = delete;
  Wait& operator=(const Wait&) = delete;
  ~Wait() { programs().pop_back(); }
};

void doNothing(int program, const std::string&) {
  pollfd waiting{program, POLLIN, 0};
  while (poll(&waiting, 1, -1) <= 0) continue;
}

std::function<void(int, const std::string&)>& current() {
  static std::function<void(int, const std::string&)> waiting = doNothing;
  return waiting;
}

}  // namespace

void waitForProgram(int program, const std::string& name) {
  const Wait wait(program, name);
  current()(program, name);
}

void setWaiting(std::function<void(int, const std::string&)> wait) { current() = std::move(wait); }

std::vector<std::string> programsWaitedFor() {
  std::vector<std::string> names;
  for (const Program& program : programs()) names.push_back(program.name);
  return names;
}

void endProgramsWaitedFor() {
  for (const Program& program : programs()) pidfd_send_signal(program.process, SIGKILL, nullptr, 0);
}

}  // namespace sim
