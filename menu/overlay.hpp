// The "Please wait..." overlay.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

/// Added to the menu host as `showLoadingView`: puts the overlay up in place of the alert window. It stays
/// until somebody closes that window.
void showLoadingView(MenuHost* host, SEL selector);

}  // namespace menu
