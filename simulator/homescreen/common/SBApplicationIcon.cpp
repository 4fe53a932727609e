#include "simulator/homescreen/common/SBApplicationIcon.hpp"

namespace sim {

SBApplicationIcon* SBApplicationIcon::initWithApplication(SBApplication* target) {
  application = target;
  return this;
}

// With locations, the name comes from what is installed: the application's own `displayName` serves other places.
id SBApplicationIcon::displayName() {
  id source = iconsKnowLocations() ? send<id>(application, "info"_sel) : application.get();
  return send<id>(source, "displayName"_sel);
}

id SBApplicationIcon::displayNameForLocation(NSInteger) { return send<id>(this, "displayName"_sel); }

void defineSBApplicationIcon() {
  ClassBuilder<SBApplicationIcon, SBLeafIcon> builder("SBApplicationIcon", "SBLeafIcon");
  builder.method<&SBApplicationIcon::initWithApplication>("initWithApplication:")
      .getter<&SBApplicationIcon::application>("application")
      .method<&SBApplicationIcon::leafIdentifier>("leafIdentifier")
      .method<&SBApplicationIcon::applicationBundleID>("applicationBundleID")
      .method<&SBApplicationIcon::displayName>("displayName");
  if (iconsKnowLocations()) builder.method<&SBApplicationIcon::displayNameForLocation>("displayNameForLocation:");
  builder.add();
}

}  // namespace sim
