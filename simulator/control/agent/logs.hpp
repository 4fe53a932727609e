// Append-only logs: a look destroys nothing, and each reader keeps a place of his own.
#pragma once

#include <algorithm>
#include <vector>

#include "simulator/control/agent/verbs.hpp"

namespace sim {

/// The member that every verb takes that reads a log.
inline Member sinceMember() {
  return optional({"since", MemberType::integer, "the \"next\" of an earlier look: only what came after it"});
}

/// `{"entries": [...], "next": N}`: the log's entries from the place asked for on, each as `shown` gives it, and the
/// place behind the last. Throws `BadRequest` for a place before the first.
template <class Entry, class Show>
nlohmann::json logSince(const nlohmann::json& members, const std::vector<Entry>& log, const Show& shown) {
  const auto since = members.value("since", std::int64_t{0});
  if (since < 0) throw BadRequest("No log has a place " + std::to_string(since));
  nlohmann::json entries = nlohmann::json::array();
  for (auto i = std::min(static_cast<std::size_t>(since), log.size()); i < log.size(); ++i)
    entries.push_back(shown(log[i]));
  return {{"entries", std::move(entries)}, {"next", log.size()}};
}

}  // namespace sim
