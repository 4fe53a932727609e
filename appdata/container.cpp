#include "appdata/paths.hpp"

#include "state/target.hpp"

namespace paths {

NSString* bundleText(SBApplication* application) {
  constexpr NSUInteger schemeLength = 7;  // "file://"
  NSString* location = formatted(application->info()->installInstanceID());
  return location->length() < schemeLength ? nullptr : location->substringFromIndex(schemeLength);
}

NSString* dataContainer(SBApplication* application) {
  return formatted(application->info()->dataContainerURL()->path());
}

NSString* backupFolder(NSString* bundleIdentifier) {
  return "/var/mobile/Documents/Sprigdial/"_ns->appending(bundleIdentifier);
}

}  // namespace paths

SBApplication* targetApplication() {
  return SBApplicationController::sharedInstance()->application(currentBundleIdentifier.get());
}
