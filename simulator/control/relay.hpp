// What one process of a phone does that others notice.
#pragma once

#include <mutex>
#include <nlohmann/json.hpp>
#include <vector>

#include "simulator/control/process.hpp"

namespace sim {

/// Carries Darwin notifications from the process that posts one to all others.
class NotificationRelay {
 public:
  /// A process takes part from now on, until it leaves; it must leave before it goes.
  void join(Process* process);
  void leave(Process* process);
  /// What a process says by itself: its posts are on their way to the others, at the moment of the post, when this
  /// returns. May be called from any thread.
  void hear(const Process* from, const nlohmann::json& push);

 private:
  std::mutex mutex_;
  std::vector<Process*> processes_;
};

}  // namespace sim
