// The old generation's cover sheet.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim::old {

struct SBDashBoardViewController : UIViewController {
  void setInScreenOffMode(RawBool off, RawBool autoUnlock);
  void setInScreenOffModeFromSource(RawBool off, RawBool autoUnlock, NSInteger unlockSource);
};

void defineSBDashBoardViewController();

}  // namespace sim::old
