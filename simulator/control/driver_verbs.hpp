// The verbs that the driver has besides the home-screen process's: phones, the device's files, expectations.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "simulator/control/vocabulary.hpp"

namespace sim {

class Session;

struct DriverVerb {
  VerbDescription description;
  /// Does it; the members were read by the description.
  void (*play)(Session& session, const nlohmann::json& members);
};

/// The rows, those of a group together. A verb of the process that has one of their names is left out.
const std::vector<DriverVerb>& driverVerbs();

}  // namespace sim
