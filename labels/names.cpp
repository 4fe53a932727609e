#include "labels/names.hpp"

#include "settings/settings.hpp"

namespace labels {
namespace {

// Read from the file each time, so that a new name shows without any reload. Nil when none is stored.
NSString* storedName(const NSString* bundleIdentifier) {
  if (bundleIdentifier == nullptr) return nullptr;
  return as<NSString>(NSDictionary::withContentsOfFile(settingsFile())->objectForKey(bundleIdentifier));
}

NSString* shownName(const SBIcon* icon) {
  return settings.enabled && bypassNames == 0 ? storedName(icon->leafIdentifier()) : nullptr;
}

}  // namespace

void storeName(NSString* bundleIdentifier, NSString* name) {
  if (bundleIdentifier == nullptr || name == nullptr) return;
  auto* stored = NSMutableDictionary::copyOf(NSDictionary::withContentsOfFile(settingsFile()));
  if (stored == nullptr) stored = NSMutableDictionary::dictionary();
  stored->set(name, bundleIdentifier);
  stored->writeToFileAtomically(settingsFile());
  constexpr double firstVersionWithPreferences = 1000.0;
  if (kCFCoreFoundationVersionNumber >= firstVersionWithPreferences)
    CFPreferencesSetAppValue(bundleIdentifier, name, "com.morvanel.sprigdial"_ns);
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
  NSString* name = settings.enabled ? storedName(application->bundleIdentifier()) : nullptr;
  return name != nullptr ? name : platformApplicationName(application, selector);
}

}  // namespace labels
