#pragma once

#include <optional>
#include <string>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// The object as the XML property list that a phone writes, in UTF-8; nothing when it holds an object that no
/// property list can.
std::optional<std::string> xmlPropertyList(id object);

/// Writes the object as a binary property list in the file's place, whole or not at all: a reader sees the old content
/// or the new one. A new file is its owner's alone. False when that cannot be done.
bool writeBinaryPropertyList(id object, const std::string& path);

/// Gives dictionaries and arrays a `writeToFile:atomically:` that writes such property lists.
void installPropertyListWriting();

}  // namespace sim
