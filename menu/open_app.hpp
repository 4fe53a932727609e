// Opening the target application.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

/// Added to the menu host as `openApps`: launches the application as an icon was launched last.
void openApps(MenuHost* host, SEL selector);

}  // namespace menu
