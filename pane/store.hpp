// The pane's way to write settings: the home screen reads the file the moment that it is told.
#pragma once

#include "settings/file.hpp"

namespace pane {

/// Stores one entry, nil to take it away, in the settings file and with the preferences daemon; everything else stays.
/// NO, and nothing has changed, when the file could not be written, or is there but cannot be read: then it may hold
/// what would be lost.
bool store(NSString* key, NSObject* value);

}  // namespace pane
