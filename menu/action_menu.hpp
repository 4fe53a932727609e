// The action menu of one application.
#pragma once

#include "platform/HomeScreen.hpp"

namespace menu {

/// Added to the menu host as `showAlertView`: builds and shows the action sheet of the current application.
/// Does nothing while there is none, within 0.8 seconds of the last menu, or over the quick-action list.
void showAlertView(MenuHost* host, SEL selector);

}  // namespace menu
