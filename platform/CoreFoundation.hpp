// CoreFoundation: the system's generation, Darwin notifications and application preferences.
#pragma once

#include "platform/Foundation.hpp"

struct __CFNotificationCenter;  // NOLINT(bugprone-reserved-identifier): the platform's own name
using CFNotificationCenterRef = __CFNotificationCenter*;
using CFStringRef = const NSString*;
using CFIndex = long;
using CFNotificationCallback = void (*)(CFNotificationCenterRef center, void* observer, CFStringRef name,
                                        const void* object, const void* userInfo);

enum class CFNotificationSuspensionBehavior : CFIndex { coalesce = 2 };

extern "C" {
extern double kCFCoreFoundationVersionNumber;
CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter();
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name, const void* object,
                                     CFNotificationSuspensionBehavior suspension);
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFStringRef name, const void* object,
                                          const void* userInfo, std::uint8_t deliverImmediately);
void CFPreferencesSetAppValue(CFStringRef key, const void* value, CFStringRef application);
}

/// Tells every process that listens; only the name travels.
inline void postDarwinNotification(CFStringRef name) {
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), name, nullptr, nullptr, 1);
}
