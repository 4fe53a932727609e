#include "labels/names.hpp"

#include "settings/settings.hpp"

namespace labels {
namespace {

// The file is read each time, so that a new name shows without any reload.
NSDictionary* storedNames() { return NSDictionary::withContentsOfFile(settingsFile()); }

// Nil when none is stored.
NSString* storedName(const NSDictionary* stored, const NSString* bundleIdentifier) {
  return bundleIdentifier != nullptr ? as<NSString>(stored->objectForKey(bundleIdentifier)) : nullptr;
}

NSString* shownName(const SBIcon* icon) {
  if (!settings.enabled || bypassNames != 0) return nullptr;
  const NSDictionary* stored = storedNames();
  return storedName(stored, icon->leafIdentifier());
}

}  // namespace

void storeName(NSString* bundleIdentifier, NSString* name) {
  if (bundleIdentifier == nullptr) return;
  storeInSettingsFile(bundleIdentifier, name);
  constexpr double firstVersionWithPreferences = 1000.0;
  if (kCFCoreFoundationVersionNumber >= firstVersionWithPreferences) storeInPreferences(bundleIdentifier, name);
}

NSString* iconName(SBIcon* icon, SEL selector) {
  NSString* name = shownName(icon);
  return name != nullptr ? name : platformIconName(icon, selector);
}

NSString* iconNameForLocation(SBIcon* icon, SEL selector, NSInteger location) {
  NSString* name = shownName(icon);
  return name != nullptr ? name : platformIconNameForLocation(icon, selector, location);
}

NSString* applicationName(SBApplication* application, SEL selector) {
  // Not bypassed while the dialog reads the icon's own name: the application keeps its new one throughout.
  const NSDictionary* stored = storedNames();
  auto* name = autoreleased(send<NSString*>(storedName(stored, application->bundleIdentifier()), "copy"_sel));
  return settings.enabled && name != nullptr ? name : platformApplicationName(application, selector);
}

}  // namespace labels
