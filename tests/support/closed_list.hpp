// The lists of what an image may leave to the process that maps it.
#pragma once

#include <map>
#include <set>
#include <string>

namespace test {

using Symbols = std::set<std::string>;

/// Each symbol of a closed list in the sources, and the phone's library that has it; "-" for none.
std::map<std::string, std::string> closedList(const std::string& path);
/// Only the symbols.
Symbols namesOfClosedList(const std::string& path);
/// Without what the compiler may ask of the C library by itself.
Symbols withoutCLibrary(Symbols symbols);

}  // namespace test
