#include "simulator/frameworks/foundation/task.hpp"

#include <sys/wait.h>

#include <cerrno>

#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

void waitUntilExit(id self, SEL) {
  const int pid = send<int>(self, "processIdentifier"_sel);
  // The program stays to be collected: asking whether it runs does that.
  siginfo_t info{};
  while (send<BOOL>(self, "isRunning"_sel)) {
    if (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT) != 0 && errno != EINTR) return;
  }
}

}  // namespace

void installTaskWaiting() {
  class_replaceMethod("NSTask"_cls, "waitUntilExit"_sel, reinterpret_cast<IMP>(&waitUntilExit),
                      methodEncoding<void>().c_str());
}

}  // namespace sim
