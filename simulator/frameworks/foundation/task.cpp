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

void waitUntilExit(id self, SEL) {
  const int pid = send<int>(self, "processIdentifier"_sel);
  // Asking whether the program runs also collects it.
  while (send<BOOL>(self, "isRunning"_sel)) {
    const int program = pidfd_open(pid, 0);
    if (program < 0) return;
    waitForProgram(program);
    close(program);
  }
}

}  // namespace

void installTaskWaiting() {
  class_replaceMethod("NSTask"_cls, "waitUntilExit"_sel, reinterpret_cast<IMP>(&waitUntilExit),
                      methodEncoding<void>().c_str());
}

}  // namespace sim
