// The "Sprigdial" entry of an icon's quick-action list.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

/// Whether the old generation's quick-action list is up, as of the last time its state was asked.
inline constinit bool forceTouchActive = false;

// Whether an entry may be activated is handed on as the platform answers it: the whole register.

// Old generation.
NSArray* applicationShortcutItems(SBUIAppIconForceTouchControllerDataProvider* provider, SEL selector);
inline constinit decltype(&applicationShortcutItems) platformApplicationShortcutItems = nullptr;

SBUIAction* initAction(SBUIAction* action, SEL selector, NSObject* title, NSObject* subtitle, UIImage* image,
                       UIView* badgeView, const void* handler);
inline constinit decltype(&initAction) platformInitAction = nullptr;

NSUInteger shouldActivateForceTouchItem(SBIconController* host, SEL selector,
                                        SBUIAppIconForceTouchController* controller, SBSApplicationShortcutItem* item,
                                        NSInteger index, NSObject* gestureRecognizer);
inline constinit decltype(&shouldActivateForceTouchItem) platformShouldActivateForceTouchItem = nullptr;

NSInteger forceTouchState(SBUIAppIconForceTouchController* controller, SEL selector);
inline constinit decltype(&forceTouchState) platformForceTouchState = nullptr;

// New generation.
NSArray* shortcutItemsForIconView(MenuHost* host, SEL selector, SBIconView* view, NSArray* proposed);
inline constinit decltype(&shortcutItemsForIconView) platformShortcutItemsForIconView = nullptr;

NSUInteger shouldActivateItem(MenuHost* host, SEL selector, SBIconView* view, SBSApplicationShortcutItem* item,
                              NSInteger index);
inline constinit decltype(&shouldActivateItem) platformShouldActivateItem = nullptr;

}  // namespace menu
