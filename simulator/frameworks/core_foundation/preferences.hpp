// Application preferences.
#pragma once

#include <string>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The values set in a domain, a dictionary; nil when there are none. They are kept in memory alone.
id preferences(const std::string& domain);

}  // namespace sim
