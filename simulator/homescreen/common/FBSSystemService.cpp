#include "simulator/homescreen/common/FBSSystemService.hpp"

#include "simulator/homescreen/common/badge_store.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim {

void FBSSystemService::setBadgeValue(id value, id bundleIdentifier) {
  id icon = send<id>(iconModel(), "applicationIconForBundleIdentifier:"_sel, bundleIdentifier);
  if (icon == nullptr) return;
  storeBadge(text(bundleIdentifier), value);
  send(icon, "setBadge:"_sel, value);
}

void defineFBSSystemService() {
  ClassBuilder<FBSSystemService>("FBSSystemService", "NSObject")
      .classMethod<&sharedInstance>("sharedService")
      .method<&FBSSystemService::setBadgeValue>("setBadgeValue:forBundleID:")
      .add();
}

}  // namespace sim
