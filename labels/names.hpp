// Renamed labels: where they are stored, and the methods that show them.
#pragma once

#include "platform/HomeScreen.hpp"

namespace labels {

/// While not zero, icons answer with the system's own name.
inline constinit int bypassNames = 0;

/// Stores the application's new name in the settings pane's file, which keeps everything else. A nil name takes the
/// stored one away.
void storeName(NSString* bundleIdentifier, NSString* name);

NSString* iconName(SBIcon* icon, SEL selector);
inline constinit decltype(&iconName) platformIconName = nullptr;

NSString* iconNameForLocation(SBIcon* icon, SEL selector, NSInteger location);
inline constinit decltype(&iconNameForLocation) platformIconNameForLocation = nullptr;

NSString* applicationName(SBApplication* application, SEL selector);
inline constinit decltype(&applicationName) platformApplicationName = nullptr;

}  // namespace labels
