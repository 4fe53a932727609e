// Keeps the swipe still while the home screen handles an icon that is downloading.
#pragma once

#include "platform/CoreFoundation.hpp"
#include "platform/HomeScreen.hpp"

namespace menu {

/// Raised from the first time a downloading icon is asked whether it is one, until half a second after the
/// user removes a downloading icon.
inline constinit bool downloading = false;

/// The answer is only handed on, so it is taken as the whole register that it comes in.
NSUInteger isDownloadingIcon(SBDownloadingIcon* icon, SEL selector);
inline constinit decltype(&isDownloadingIcon) platformIsDownloadingIcon = nullptr;

void uninstalledByUser(SBDownloadingIcon* icon, SEL selector);
inline constinit decltype(&uninstalledByUser) platformUninstalledByUser = nullptr;

/// A downloading icon has been removed.
void downloadEnded(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*);

}  // namespace menu
