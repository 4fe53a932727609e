#pragma once

#include "simulator/runtime/objc.hpp"

namespace sim {

/// A copy of the object, as properties of texts keep: later changes to a mutable text do not show. Nil gives nil.
Ref<objc_object> copied(id object);

}  // namespace sim
