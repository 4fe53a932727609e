// The old generation's cover sheet.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim::old {

struct SBDashBoardViewController : UIViewController {
  void setInScreenOffMode(BOOL off, BOOL autoUnlock);
  void setInScreenOffModeFromSource(BOOL off, BOOL autoUnlock, NSInteger unlockSource);
};

void defineSBDashBoardViewController();

}  // namespace sim::old
