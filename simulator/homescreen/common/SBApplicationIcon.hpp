// The icon of an application.
#pragma once

#include "simulator/homescreen/common/SBApplication.hpp"
#include "simulator/homescreen/common/SBLeafIcon.hpp"

namespace sim {

struct SBApplicationIcon : SBLeafIcon {
  Ref<SBApplication> application;

  SBApplicationIcon* initWithApplication(SBApplication* target);
  id leafIdentifier() { return send<id>(application, "bundleIdentifier"_sel); }
  id applicationBundleID() { return send<id>(application, "bundleIdentifier"_sel); }
  id displayName();
  id displayNameForLocation(NSInteger location);
};

void defineSBApplicationIcon();

}  // namespace sim
