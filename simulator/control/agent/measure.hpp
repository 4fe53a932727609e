// What the benchmarks measure inside the process: the platform's own cost of what the add-on does, and methods
// called very often.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace sim {

/// The names that "what" may have.
std::vector<std::string> measureNames();
/// Does what the request's "what" names; the answer's seconds tell how long it took. Throws `BadRequest`, and an
/// exception of the JSON library when it does not hold what that takes.
nlohmann::json measure(const nlohmann::json& request);

}  // namespace sim
