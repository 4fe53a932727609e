// The one object of a class, for the platform's `sharedInstance` methods.
#pragma once

#include "simulator/runtime/objc.hpp"

namespace sim {

/// Makes the object at the first call; it lives as long as the process.
id sharedInstance(Class cls);

}  // namespace sim
