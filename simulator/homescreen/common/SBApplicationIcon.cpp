#include "simulator/homescreen/common/SBApplicationIcon.hpp"

namespace sim {

SBApplicationIcon* SBApplicationIcon::initWithApplication(SBApplication* target) {
  application = target;
  return this;
}

// The label's name comes from what is installed: the application's own `displayName` serves other places.
id SBApplicationIcon::displayName() { return send<id>(send<id>(application, "info"_sel), "displayName"_sel); }

id SBApplicationIcon::displayNameForLocation(NSInteger) { return send<id>(this, "displayName"_sel); }

void defineSBApplicationIcon() {
  ClassBuilder<SBApplicationIcon, SBLeafIcon>("SBApplicationIcon", "SBLeafIcon")
      .method<&SBApplicationIcon::initWithApplication>("initWithApplication:")
      .getter<&SBApplicationIcon::application>("application")
      .method<&SBApplicationIcon::leafIdentifier>("leafIdentifier")
      .method<&SBApplicationIcon::applicationBundleID>("applicationBundleID")
      .method<&SBApplicationIcon::displayName>("displayName")
      .method<&SBApplicationIcon::displayNameForLocation>("displayNameForLocation:")
      .add();
}

}  // namespace sim
