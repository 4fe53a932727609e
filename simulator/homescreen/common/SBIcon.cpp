#include "simulator/homescreen/common/SBIcon.hpp"

#include "platform/CoreFoundation.hpp"
#include "simulator/homescreen/common/icons.hpp"

namespace sim {
namespace {

// A web page opens in an application of its own, which the device does not have.
void launch(SBIcon* icon, NSInteger location, id context, id settings, id actions) {
  const std::string identifier = text(send<id>(icon, "applicationBundleID"_sel));
  homeState().launches.push_back(
      {identifier, location, textOrNone(context), textOrNone(settings), textOrNone(actions)});
  if (!identifier.empty()) openApplication(identifier);
}

}  // namespace

bool iconsKnowLocations() {
  constexpr double firstVersionWithLocations = 1000;
  return kCFCoreFoundationVersionNumber >= firstVersionWithLocations;
}

id SBIcon::displayNameForLocation(NSInteger) { return send<id>(this, "displayName"_sel); }

void SBIcon::setBadge(id value) {
  const bool empty =
      isKind(value, "NSString"_cls) ? text(value).empty() : send<NSInteger>(value, "integerValue"_sel) == 0;
  badge = empty ? nullptr : value;
  if (SBIconView* view = viewOf(this)) view->updateBadge();
}

void SBIcon::launchFromLocationContextSettingsActions(NSInteger location, id context, id settings, id actions) {
  launch(this, location, context, settings, actions);
}

void SBIcon::launchFromLocationContext(NSInteger location, id context) {
  launch(this, location, context, nullptr, nullptr);
}

void defineSBIcon(Generation generation) {
  ClassBuilder<SBIcon> builder("SBIcon", "NSObject");
  builder.method<&SBIcon::applicationBundleID>("applicationBundleID")
      .method<&SBIcon::displayName>("displayName")
      .method<&SBIcon::isDownloadingIcon>("isDownloadingIcon")
      .method<&SBIcon::badgeNumberOrString>("badgeNumberOrString")
      .method<&SBIcon::setBadge>("setBadge:");
  if (iconsKnowLocations()) builder.method<&SBIcon::displayNameForLocation>("displayNameForLocation:");
  if (generation == Generation::old) {
    builder.method<&SBIcon::launchFromLocationContextSettingsActions>(
        "launchFromLocation:context:activationSettings:actions:");
  } else {
    builder.method<&SBIcon::launchFromLocationContext>("launchFromLocation:context:");
  }
  builder.add();
}

}  // namespace sim
