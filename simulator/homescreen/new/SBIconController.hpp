// The new generation's icon controller: no more than the way to the icon manager.
#pragma once

#include "simulator/homescreen/new/SBHIconManager.hpp"

namespace sim::latest {

struct SBIconController : Object {
  Ref<SBHIconManager> iconManager;

  SBIconController* init();
};

void defineSBIconController();

}  // namespace sim::latest
