// The icons of the home screen, in their order.
#pragma once

#include "simulator/homescreen/common/SBIcon.hpp"

namespace sim {

struct SBIconModel : Object {
  std::vector<Ref<SBIcon>> icons;

  /// Nil when no icon has that identifier.
  id leafIconForIdentifier(id identifier);
  /// Nil when no application's icon has that bundle identifier.
  id applicationIconForBundleIdentifier(id bundleIdentifier);
  id leafIcons();
};

void defineSBIconModel();

}  // namespace sim
