// The requests of a driver, and the answers to them.
#pragma once

#include <nlohmann/json.hpp>

namespace sim {

/// Does what the request asks for and what is due after it, and gives the answer: the value and the seconds that it
/// took, or what went wrong and the kind of that. An exception of the platform's passes, unless the request is
/// "catching".
nlohmann::json answer(const nlohmann::json& request);
/// The same, and what goes wrong is thrown.
nlohmann::json perform(const nlohmann::json& request);

}  // namespace sim
