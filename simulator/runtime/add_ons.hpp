// What a hooking loader does when a process starts: it maps the add-ons that are meant for it.
#pragma once

#include <string>
#include <vector>

namespace sim {

/// Maps the device's add-ons whose filters name this bundle, in the order of their names. Gives a line for each other,
/// which tells why it is not mapped.
std::vector<std::string> mapAddOns(const std::string& bundle);

}  // namespace sim
