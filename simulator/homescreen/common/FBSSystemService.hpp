// The system service through which applications' badges are set.
#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct FBSSystemService : Object {
  /// Keeps and shows the badge, a number or a text; nil takes it away. Does nothing for an unknown application.
  void setBadgeValue(id value, id bundleIdentifier);
};

void defineFBSSystemService();

}  // namespace sim
