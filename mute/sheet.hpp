// The sheet that mutes an application for a chosen time.
#pragma once

#include "platform/HomeScreen.hpp"

namespace mute {

/// Added to the menu host as `muteNotifications`: asks the application object for the sheet.
void muteNotifications(MenuHost* host, SEL selector);
/// Added to `SpringBoard` as `launchMuteMenu:`: shows the sheet for the application named in the notification.
void launchMuteMenu(NSObject* springBoard, SEL selector, NSNotification* notification);

void applicationDidFinishLaunching(NSObject* springBoard, SEL selector, NSObject* application);
inline constinit decltype(&applicationDidFinishLaunching) platformApplicationDidFinishLaunching = nullptr;

}  // namespace mute
