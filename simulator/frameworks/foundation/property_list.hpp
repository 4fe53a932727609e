#pragma once

#include <optional>
#include <string>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The object as the XML property list that a phone writes, in UTF-8; nothing when it holds an object that no
/// property list can.
std::optional<std::string> xmlPropertyList(id object);

/// Gives dictionaries and arrays a `writeToFile:atomically:` that writes such property lists.
void installPropertyListWriting();

}  // namespace sim
