// The target application, and where its things are.
#pragma once

#include "platform/HomeScreen.hpp"

/// The application whose bundle identifier is the current one; nil when the home screen knows none.
SBApplication* targetApplication();
/// Its name, as sheets and alerts are titled; the text "(null)" when there is none.
NSString* targetName();
/// The path of its data container; the text "(null)" when there is none, which names no folder.
NSString* dataContainer();
/// Its bundle folder as its location spells it, percent escapes and all; nil when the location is too short
/// to be one.
NSString* bundleText();
/// The folder of its backups.
NSString* backupFolder();
/// Removes everything in the folder and keeps the folder. What cannot be removed stays; the rest still goes.
void emptyFolder(const NSString* folder);
