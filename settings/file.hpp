// The settings file, as the home screen and the settings pane both write it. Renamed labels are kept in it too, under
// bundle identifiers.
#pragma once

#include "platform/CoreFoundation.hpp"

inline NSString* settingsFile() { return "/var/mobile/Library/Preferences/com.morvanel.sprigdial.plist"_ns; }

/// Sets one entry of the settings file, which keeps everything else; a nil value takes the entry away. A file that is
/// missing or holds no dictionary begins anew. NO when the file could not be written; it is as it was then.
bool storeInSettingsFile(NSString* key, NSObject* value);

/// Tells the preferences daemon of the same entry: it keeps what it has once read, and would write that over the file
/// one day. A nil value takes the entry away.
void storeInPreferences(NSString* key, NSObject* value);
