// What the home-screen process answers, as a person reads it.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace sim {

/// Lines that end in a line feed: an entry of a list each, a member of an object each. A log's entries are what
/// it shows; null gives nothing.
std::string readable(const nlohmann::json& value);

}  // namespace sim
