// The file that lists the muted applications.
#pragma once

#include "platform/Foundation.hpp"

namespace mute {

/// Where the list is kept.
inline NSString* registryFile() { return "/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"_ns; }

/// Makes the file, with no entries and mode 0644, where it is missing. An existing one is left as it is.
void createRegistryFile();

}  // namespace mute
