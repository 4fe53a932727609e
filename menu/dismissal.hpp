// Takes the menu off the screen when the device locks, the screen goes off or the power-down slider comes up.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

// Old generation.
void setInScreenOffMode(NSObject* dashboard, SEL selector, BOOL off, BOOL autoUnlock);
inline constinit decltype(&setInScreenOffMode) platformSetInScreenOffMode = nullptr;

void setInScreenOffModeFromSource(NSObject* dashboard, SEL selector, BOOL off, BOOL autoUnlock, NSInteger source);
inline constinit decltype(&setInScreenOffModeFromSource) platformSetInScreenOffModeFromSource = nullptr;

void orderFront(NSObject* powerDown, SEL selector);
inline constinit decltype(&orderFront) platformOrderFront = nullptr;

// New generation.
void coverSheetWillAppear(NSObject* coverSheet, SEL selector, BOOL animated);
inline constinit decltype(&coverSheetWillAppear) platformCoverSheetWillAppear = nullptr;

/// The argument's type is the platform's affair: a whole register is handed on.
void powerDownViewWillAnimateIn(NSObject* powerDown, SEL selector, NSUInteger argument);
inline constinit decltype(&powerDownViewWillAnimateIn) platformPowerDownViewWillAnimateIn = nullptr;

}  // namespace menu
