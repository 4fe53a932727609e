// Reading the device's property lists, whatever they hold.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The dictionary in the file; nil when there is none that can be read.
id dictionaryAt(const std::string& path);
/// The value of a dictionary that is a text; empty when there is none.
std::string textIn(id dictionary, const char* key);
/// The value of a dictionary that is an array of objects of that class; others are left out.
std::vector<id> arrayIn(id dictionary, const char* key, Class elementClass);

}  // namespace sim
