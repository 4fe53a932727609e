// Takes the menu off the screen when the device locks, the screen goes off or the power-down slider comes up.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

// The arguments are only handed on, so each is taken as the whole register that it comes in.

// Old generation.
void setInScreenOffMode(NSObject* dashboard, SEL selector, NSUInteger off, NSUInteger autoUnlock);
inline constinit decltype(&setInScreenOffMode) platformSetInScreenOffMode = nullptr;

void setInScreenOffModeFromSource(NSObject* dashboard, SEL selector, NSUInteger off, NSUInteger autoUnlock,
                                  NSUInteger source);
inline constinit decltype(&setInScreenOffModeFromSource) platformSetInScreenOffModeFromSource = nullptr;

void orderFront(NSObject* powerDown, SEL selector);
inline constinit decltype(&orderFront) platformOrderFront = nullptr;

// New generation.
void coverSheetWillAppear(NSObject* coverSheet, SEL selector, NSUInteger animated);
inline constinit decltype(&coverSheetWillAppear) platformCoverSheetWillAppear = nullptr;

void powerDownViewWillAnimateIn(NSObject* powerDown, SEL selector, NSUInteger argument);
inline constinit decltype(&powerDownViewWillAnimateIn) platformPowerDownViewWillAnimateIn = nullptr;

}  // namespace menu
