// Mapping libraries into the process.
#pragma once

#include <string>

namespace sim {

/// Maps a library as the hooking loader does: all symbols bound at once, its initialiser run before this returns. What
/// it hooks and adds meanwhile is in the call log. Gives why it cannot be mapped, in a few words; nothing when it is.
std::string mapLibrary(const std::string& path);
/// How long mapping took, of all libraries together.
double mappingSeconds();

}  // namespace sim
