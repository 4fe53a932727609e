// The vertical swipe on an icon, and what touching and launching icons leaves behind for the menu.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

/// The arguments of the last icon launch, all nil before the first. The new generation has no settings and
/// actions.
struct LaunchArguments {
  Slot<NSObject> context;
  Slot<NSObject> activationSettings;
  Slot<NSObject> actions;
};
inline constinit LaunchArguments lastLaunch;

// Old generation.
void launchWithSettings(SBIcon* icon, SEL selector, NSInteger location, NSObject* context, NSObject* activationSettings,
                        NSObject* actions);
inline constinit decltype(&launchWithSettings) platformLaunchWithSettings = nullptr;

// New generation.
void launch(SBIcon* icon, SEL selector, NSInteger location, NSObject* context);
inline constinit decltype(&launch) platformLaunch = nullptr;

// Both.
void addTouchedIconView(MenuHost* host, SEL selector, SBIconView* view);
inline constinit decltype(&addTouchedIconView) platformAddTouchedIconView = nullptr;

void touchMoved(MenuHost* host, SEL selector, SBIcon* icon, UITouch* touch);
inline constinit decltype(&touchMoved) platformTouchMoved = nullptr;

}  // namespace menu
