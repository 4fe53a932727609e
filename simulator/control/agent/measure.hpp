// What the benchmarks measure inside the process: the platform's own cost of what the add-on does, and methods
// called very often.
#pragma once

#include <nlohmann/json.hpp>

namespace sim {

/// Does what the request's "what" names; the answer's seconds tell how long it took. Throws `BadRequest`.
nlohmann::json measure(const nlohmann::json& request);

}  // namespace sim
