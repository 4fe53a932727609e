#include "simulator/homescreen/old/SBUIAppIconForceTouchControllerDataProvider.hpp"

#include "simulator/homescreen/common/SBSApplicationShortcutItem.hpp"

namespace sim::old {

id SBUIAppIconForceTouchControllerDataProvider::applicationShortcutItems() {
  const auto items = shortcutItemsOf(send<id>(this, "applicationBundleIdentifier"_sel));
  return items.empty() ? nullptr : array(items);
}

void defineSBUIAppIconForceTouchControllerDataProvider() {
  using Provider = SBUIAppIconForceTouchControllerDataProvider;
  ClassBuilder<Provider>("SBUIAppIconForceTouchControllerDataProvider", "NSObject")
      .method<&Provider::applicationBundleIdentifier>("applicationBundleIdentifier")
      .method<&Provider::applicationShortcutItems>("applicationShortcutItems")
      .add();
}

}  // namespace sim::old
