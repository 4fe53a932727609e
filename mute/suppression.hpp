// Keeps notifications of muted applications from the screen, the sound, the lock screen and the banners.
#pragma once

#include "platform/HomeScreen.hpp"

namespace mute {

// Both generations.
void turnOnScreen(NSObject* controller, SEL selector, NCNotificationRequest* request);
inline constinit decltype(&turnOnScreen) platformTurnOnScreen = nullptr;

void playSound(NSObject* controller, SEL selector, NCNotificationRequest* request);
inline constinit decltype(&playSound) platformPlaySound = nullptr;

// Old generation. `modal` is only handed on, so it is taken as the whole register that it comes in.
void postToDashBoard(NSObject* dispatcher, SEL selector, NCNotificationRequest* request, NSObject* coalesced);
inline constinit decltype(&postToDashBoard) platformPostToDashBoard = nullptr;

void postBannerWithCompletion(NSObject* destination, SEL selector, NCNotificationRequest* request, NSObject* coalesced,
                              NSUInteger modal, NSObject* sourceAction, const void* completion);
inline constinit decltype(&postBannerWithCompletion) platformPostBannerWithCompletion = nullptr;

// New generation.
void postToCoverSheet(NSObject* dispatcher, SEL selector, NCNotificationRequest* request);
inline constinit decltype(&postToCoverSheet) platformPostToCoverSheet = nullptr;

void postBanner(NSObject* destination, SEL selector, NCNotificationRequest* request);
inline constinit decltype(&postBanner) platformPostBanner = nullptr;

}  // namespace mute
