#pragma once

#include <string_view>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// What a property list in the old text form (`{ key = value; }`, with or without the outermost braces) says, in
/// immutable containers. Throws when it is damaged.
id readOldStylePropertyList(std::u16string_view text);

}  // namespace sim
