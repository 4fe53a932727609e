// The badges that the device keeps over restarts.
#pragma once

#include <string>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The stored badge, a number or a text; nil when there is none.
id storedBadge(const std::string& bundleIdentifier);
/// Keeps the badge, a number or a text; nil removes it.
void storeBadge(const std::string& bundleIdentifier, id badge);

}  // namespace sim
