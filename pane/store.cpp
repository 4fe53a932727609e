#include "pane/store.hpp"

namespace pane {

bool store(NSString* key, NSObject* value) {
  const bool isLocked = NSFileManager::defaultManager()->fileExists(settingsFile()) &&
                        NSData::withContentsOfFile(settingsFile()) == nullptr;
  if (isLocked || !storeInSettingsFile(key, value)) return false;
  storeInPreferences(key, value);
  return true;
}

}  // namespace pane
