#include "appdata/container.hpp"

#include "state/target.hpp"

SBApplication* applicationWith(const NSString* bundleIdentifier) {
  return kept(SBApplicationController::sharedInstance()->application(bundleIdentifier));
}

SBApplication* targetApplication() { return applicationWith(currentBundleIdentifier.get()); }

NSString* nameOf(const SBApplication* application) { return formatted(application->displayName()); }

NSString* dataFolderOf(const SBApplicationInfo* info) { return formatted(info->dataContainerURL()->path()); }

NSString* bundleTextOf(const SBApplicationInfo* info) {
  constexpr NSUInteger schemeLength = 7;  // "file://"
  NSString* location = formatted(info->installInstanceID());
  return location->length() < schemeLength ? nullptr : location->substringFromIndex(schemeLength);
}

DataContainer lookUpDataContainer() {
  NSString* identifier = currentBundleIdentifier.get();
  const SBApplication* application = applicationWith(identifier);
  NSString* title = nameOf(application);
  return {identifier, title, dataFolderOf(application->info())};
}

NSString* backupFolder(NSString* bundleIdentifier) {
  return "/var/mobile/Documents/Sprigdial/"_ns->appending(formatted(bundleIdentifier));
}

void emptyFolder(const NSFileManager* files, const NSString* folder) {
  NSArray* names = files->contentsOfDirectory(folder);
  const NSUInteger count = names->count();
  for (NSUInteger i = 0; i < count; ++i) {
    const AutoreleasePool each;
    files->removeItem(folder->appendingPathComponent(names->at<NSString>(i)));
  }
}
