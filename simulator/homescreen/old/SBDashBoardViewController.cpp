#include "simulator/homescreen/old/SBDashBoardViewController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

void SBDashBoardViewController::setInScreenOffMode(RawBool off, RawBool autoUnlock) {
  homeState().passedOn.push_back({"setInScreenOffMode:forAutoUnlock:", {byteOf(off), byteOf(autoUnlock)}});
  homeState().screenOn = off == RawBool{};
}

void SBDashBoardViewController::setInScreenOffModeFromSource(RawBool off, RawBool autoUnlock, NSInteger source) {
  homeState().passedOn.push_back(
      {"setInScreenOffMode:forAutoUnlock:fromUnlockSource:", {byteOf(off), byteOf(autoUnlock), source}});
  homeState().screenOn = off == RawBool{};
}

void defineSBDashBoardViewController() {
  ClassBuilder<SBDashBoardViewController, UIViewController>("SBDashBoardViewController", "UIViewController")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBDashBoardViewController::setInScreenOffMode>("setInScreenOffMode:forAutoUnlock:")
      .method<&SBDashBoardViewController::setInScreenOffModeFromSource>(
          "setInScreenOffMode:forAutoUnlock:fromUnlockSource:")
      .add();
}

}  // namespace sim::old
