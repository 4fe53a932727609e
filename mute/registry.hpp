// The list of muted applications, and until when. Main thread only.
#pragma once

#include "platform/HomeScreen.hpp"

namespace mute {

/// Makes the list's file, with no entries and mode 0644, where it is missing. An existing one is left as it is.
void createRegistryFile();
/// Reads the list from its file, in place of what was held. Without a readable file there is no list: then
/// nothing is ever muted and nothing is written.
void loadRegistry();

/// Mutes the application for that many seconds, without end for less than 0, and not at all any more for 0.
/// The file is written whole in every case.
void registerMute(NSString* bundleIdentifier, double seconds);
/// Whether the application is muted now, without changing anything.
bool isMutedNow(NSString* bundleIdentifier);
/// Whether the notification's application is muted. Entries whose time has passed leave the list, and the
/// file is written whole.
bool isMuted(NCNotificationRequest* request);

}  // namespace mute
