// The requests of a driver, by their verbs.
#pragma once

#include <nlohmann/json.hpp>

namespace sim {

/// Does what the request asks for and gives its value. Throws an exception of the standard library, with a
/// sentence for a person, when that cannot be done.
nlohmann::json perform(const nlohmann::json& request);

}  // namespace sim
