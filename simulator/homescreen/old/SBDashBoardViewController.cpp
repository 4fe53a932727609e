#include "simulator/homescreen/old/SBDashBoardViewController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

void SBDashBoardViewController::setInScreenOffMode(BOOL off, BOOL) { home().screenOn = !off; }
void SBDashBoardViewController::setInScreenOffModeFromSource(BOOL off, BOOL, NSInteger) { home().screenOn = !off; }

void defineSBDashBoardViewController() {
  ClassBuilder<SBDashBoardViewController, UIViewController>("SBDashBoardViewController", "UIViewController")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBDashBoardViewController::setInScreenOffMode>("setInScreenOffMode:forAutoUnlock:")
      .method<&SBDashBoardViewController::setInScreenOffModeFromSource>(
          "setInScreenOffMode:forAutoUnlock:fromUnlockSource:")
      .add();
}

}  // namespace sim::old
