// Mapping the add-on's library into the home-screen process.
#pragma once

#include <string>

namespace sim {

/// Maps the library as the hooking loader does: all symbols bound at once, its initialiser run before this
/// returns. What it hooks and adds meanwhile is in the call log. Throws `std::runtime_error` when it cannot
/// be mapped.
void mapLibrary(const std::string& path);
/// How long that took; 0 before.
double mappingSeconds();

}  // namespace sim
