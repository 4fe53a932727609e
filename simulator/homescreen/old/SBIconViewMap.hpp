// Which view shows which icon.
#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim::old {

struct SBIconViewMap : Object {
  id iconModel();
  /// Nil for an icon that is not on the home screen.
  id iconViewForIcon(id icon);
};

void defineSBIconViewMap();

}  // namespace sim::old
