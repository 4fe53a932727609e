#pragma once

#include <string>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// What the bytes say as Foundation here reads them, in immutable containers; nil, or an exception, when they are
/// damaged or it does not know their form.
id foundationPropertyList(id data);

/// What the XML says, read in the same way after taking away what Foundation here stumbles over.
id readXMLPropertyList(const std::u16string& xml);

}  // namespace sim
