#include "appdata/container.hpp"

#include "state/target.hpp"

SBApplication* targetApplication() {
  return SBApplicationController::sharedInstance()->application(currentBundleIdentifier.get());
}

NSString* targetName() { return formatted(targetApplication()->displayName()); }

NSString* dataContainer() { return formatted(targetApplication()->info()->dataContainerURL()->path()); }

NSString* bundleText() {
  constexpr NSUInteger schemeLength = 7;  // "file://"
  NSString* location = formatted(targetApplication()->info()->installInstanceID());
  return location->length() < schemeLength ? nullptr : location->substringFromIndex(schemeLength);
}

NSString* backupFolder() {
  return "/var/mobile/Documents/Sprigdial/"_ns->appending(formatted(currentBundleIdentifier.get()));
}

void emptyFolder(const NSString* folder) {
  NSFileManager* files = NSFileManager::defaultManager();
  NSArray* names = files->contentsOfDirectory(folder);
  const NSUInteger count = names->count();
  for (NSUInteger i = 0; i < count; ++i) {
    const AutoreleasePool each;
    files->removeItem(folder->appendingPathComponent(names->at<NSString>(i)));
  }
}
