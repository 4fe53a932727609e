// The requests of a driver, by their verbs.
#pragma once

#include <nlohmann/json.hpp>

namespace sim {

/// Does what the request asks for and gives its value. Throws an exception of the standard library, with a
/// sentence for a person, when that cannot be done.
nlohmann::json perform(const nlohmann::json& request);
/// Performs the request, an object, and what is due after it, and gives the answer. An exception of the platform's
/// ends the process, unless the request is "catching". Throws as `perform` does.
nlohmann::json answer(const nlohmann::json& request);

}  // namespace sim
