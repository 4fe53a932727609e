#include "simulator/frameworks/preferences/PSViewController.hpp"

#include "platform/CoreFoundation.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/uikit/UINavigationController.hpp"

namespace sim {
namespace {

id property(PSSpecifier* row, const char* key) { return send<id>(row, "propertyForKey:"_sel, ns(key)); }

id domainOf(PSSpecifier* row) {
  id domain = property(row, "defaults");
  return domain != nullptr ? domain : ns("com.apple.Preferences");
}

}  // namespace

void PSViewController::setSpecifier(PSSpecifier* row) {
  specifier = row;
  send(this, "setTitle:"_sel, send<id>(row, "name"_sel));
}

id PSViewController::readPreferenceValue(PSSpecifier* row) {
  id key = property(row, "key");
  id value = key != nullptr ? send<id>(readPreferences(text(domainOf(row))), "objectForKey:"_sel, key) : nullptr;
  return value != nullptr ? value : property(row, "default");
}

void PSViewController::setPreferenceValue(id value, PSSpecifier* row) {
  id key = property(row, "key");
  if (key == nullptr) return;
  const auto name = [](id object) { return reinterpret_cast<CFStringRef>(object); };
  CFPreferencesSetAppValue(name(key), value, name(domainOf(row)));
  if (id posted = property(row, "PostNotification"); posted != nullptr)
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), name(posted), nullptr, nullptr,
                                         1);
}

void PSViewController::pushController(UIViewController* controller, bool animated) {
  send(navigationController(), "pushViewController:animated:"_sel, controller, animated);
}

void definePSViewController() {
  using Self = PSViewController;
  ClassBuilder<Self, UIViewController>("PSViewController", "UIViewController")
      .getter<&Self::specifier>("specifier")
      .method<&Self::setSpecifier>("setSpecifier:")
      .property<&Self::parentController>("parentController")
      .property<&Self::rootController>("rootController")
      .method<&Self::readPreferenceValue>("readPreferenceValue:")
      .method<&Self::setPreferenceValue>("setPreferenceValue:specifier:")
      .method<&Self::pushController>("pushController:animate:")
      .add();
}

}  // namespace sim
