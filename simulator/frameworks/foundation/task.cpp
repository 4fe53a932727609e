#include "simulator/frameworks/foundation/task.hpp"

#include <unistd.h>

#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"
#include "simulator/runtime/waiting.hpp"

// The C library's header says nothing of C++.
extern "C" {
#include <sys/pidfd.h>
}

namespace sim {
namespace {

/// A process by its file descriptor, which is closed even if an exception ends the wait.
struct Process {
  int descriptor;
  explicit Process(int pid) : descriptor(pidfd_open(pid, 0)) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { close(descriptor); }
};

// As on a phone, the run loop goes on meanwhile.
void waitUntilExit(id self, SEL) {
  const std::string name = text(send<id>(send<id>(self, "launchPath"_sel), "lastPathComponent"_sel));
  const int pid = send<int>(self, "processIdentifier"_sel);
  // Asking whether the program runs also collects it.
  while (send<BOOL>(self, "isRunning"_sel)) {
    const Process program(pid);
    if (program.descriptor < 0) return;
    waitForProgram(program.descriptor, name);
  }
}

}  // namespace

void installTaskWaiting() {
  class_replaceMethod("NSTask"_cls, "waitUntilExit"_sel, reinterpret_cast<IMP>(&waitUntilExit),
                      methodEncoding<void>().c_str());
}

}  // namespace sim
