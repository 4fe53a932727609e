// What the home screen shows in windows of its own: the icons, an open application, the quick-action list, the status
// bar, the switcher, the lock screen, banners and the power slider.
#pragma once

#include <cstddef>
#include <string>

#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

/// From the lowest to the uppermost.
enum class SystemWindow { icons, application, quickActions, statusBar, switcher, lockScreen, banners, powerSlider };

/// A row of the quick-action list, which has a title, a subtitle and a picture.
struct SBUIActionView : UIView {
  std::size_t index = 0;
};

/// The window, which may be hidden; it fills the screen or what it shows.
UIWindow* systemWindow(SystemWindow which);
/// Whether it is one of these, or the keyboard's.
bool isSystemWindow(const UIWindow* window);
/// The row of the open quick-action list.
SBUIActionView* quickActionRow(std::size_t index);
/// Brings the windows, and the keyboard, to what the home screen's state says. This is done whenever an event has been
/// dealt with.
void updateWindows();
/// What a person calls what the window shows: "the lock screen", "the sheet "Notes"".
std::string nameOf(const UIWindow* window);

/// Defines `SBWindow` and the views in these windows.
void defineSystemWindows();

}  // namespace sim
