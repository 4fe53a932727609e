// The target application, and where its things are.
#pragma once

#include "platform/HomeScreen.hpp"

/// The application of that bundle identifier; nil when the home screen knows none. It stays until the surrounding pool
/// drains, even if it is removed meanwhile.
SBApplication* applicationWith(const NSString* bundleIdentifier);
/// The one whose bundle identifier is the current one.
SBApplication* targetApplication();
/// The name that sheets and alerts are titled with; the text "(null)" when there is none.
NSString* nameOf(const SBApplication* application);
/// The path of the data container; the text "(null)" when there is none, which names no folder.
NSString* dataFolderOf(const SBApplicationInfo* info);
/// The bundle folder as its location spells it, percent escapes and all; nil when the location is too short to be one.
NSString* bundleTextOf(const SBApplicationInfo* info);

/// What every operation on the target application's data begins with.
struct DataContainer {
  NSString* identifier;  ///< the application's, at the time of the look-up; nil when none is the current one
  NSString* title;       ///< its name, as `nameOf` gives it
  NSString* path;        ///< as `dataFolderOf` gives it
};
DataContainer lookUpDataContainer();

/// The folder of the application's backups.
NSString* backupFolder(NSString* bundleIdentifier);
/// Removes everything in the folder and keeps the folder. What cannot be removed stays; the rest still goes.
void emptyFolder(const NSFileManager* files, const NSString* folder);
