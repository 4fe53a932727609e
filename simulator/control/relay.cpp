#include "simulator/control/relay.hpp"

namespace sim {

void NotificationRelay::join(Process* process) {
  const std::scoped_lock lock(mutex_);
  processes_.push_back(process);
}

void NotificationRelay::leave(Process* process) {
  const std::scoped_lock lock(mutex_);
  std::erase(processes_, process);
}

void NotificationRelay::hear(const Process* from, const nlohmann::json& push) {
  if (push.at("push") != "posted") return;
  const std::scoped_lock lock(mutex_);
  for (Process* process : processes_) {
    if (process == from) continue;
    process->connection().send({{"verb", "catch-up"}, {"members", {{"uptime", push.at("uptime")}}}});
    process->connection().send({{"verb", "post"}, {"members", {{"name", push.at("name")}}}});
  }
}

}  // namespace sim
