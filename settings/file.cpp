#include "settings/file.hpp"

bool storeInSettingsFile(NSString* key, NSObject* value) {
  auto* stored = NSMutableDictionary::copyOf(NSDictionary::withContentsOfFile(settingsFile()));
  if (stored == nullptr) stored = NSMutableDictionary::dictionary();
  stored->setValue(value, key);
  return stored->writeToFileAtomically(settingsFile());
}

void storeInPreferences(NSString* key, NSObject* value) {
  CFPreferencesSetAppValue(key, value, "com.morvanel.sprigdial"_ns);
}
