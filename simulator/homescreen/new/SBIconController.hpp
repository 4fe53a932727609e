// The new generation's icon controller: no more than the way to the icon manager.
#pragma once

#include "simulator/homescreen/new/SBHIconManager.hpp"

namespace sim::recent {

struct SBIconController : Object {
  Ref<SBHIconManager> iconManager;

  SBIconController* init();
};

void defineSBIconController();

}  // namespace sim::recent
