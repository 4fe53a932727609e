// An icon that is no folder.
#pragma once

#include "simulator/homescreen/common/SBIcon.hpp"

namespace sim {

struct SBLeafIcon : SBIcon {
  id leafIdentifier() { return nullptr; }
};

void defineSBLeafIcon();

}  // namespace sim
