// The new generation's power-down slider.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim::recent {

struct SBPowerDownViewController : UIViewController {
  void powerDownViewWillAnimateIn(UIView* powerDownView);
};

void defineSBPowerDownViewController();

}  // namespace sim::recent
