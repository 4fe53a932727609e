// Where the target application's things are.
#pragma once

#include "platform/HomeScreen.hpp"

namespace paths {

/// The bundle folder as its location spells it, percent escapes and all. Nil when the location's text is
/// too short to be one.
NSString* bundleText(SBApplication* application);
/// The data container's path; the text "(null)" when there is none, as the format writes it.
NSString* dataContainer(SBApplication* application);
/// Where the application's backups are kept.
NSString* backupFolder(NSString* bundleIdentifier);

}  // namespace paths

/// The application whose bundle identifier is the current one; nil when the home screen knows none.
SBApplication* targetApplication();
