// Clearing and setting an icon's badge.
#pragma once

#include "platform/HomeScreen.hpp"

namespace badges {

/// Added to the menu host as `clearBadges`: the badge goes at once.
void clearBadges(MenuHost* host, SEL selector);
/// Added to the menu host as `setBadges`: asks for a text and hands it to the system as the badge.
void setBadges(MenuHost* host, SEL selector);

}  // namespace badges
