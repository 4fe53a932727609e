// The application that the menu and every operation act on.
#pragma once

#include "platform/Foundation.hpp"

/// The bundle identifier of the icon whose menu is asked for. Nil until an icon has been touched, and after
/// one that is no application.
inline constinit Slot<NSString> currentBundleIdentifier;
