// The one window from which every sheet, alert and overlay of the add-on is shown.
#pragma once

#include "platform/UIKit.hpp"

/// Nil while nothing is shown. Whoever shows something replaces it, by `setAlertWindow`.
inline constinit Slot<UIWindow> alertWindow;
/// Tells one alert window from the next: another number for each.
inline constinit unsigned alertWindowNumber = 0;
/// The window's root controller, from which sheets and alerts are presented.
inline constinit Slot<UIViewController> alertRootController;

/// Puts a window into the slot. The one before leaves the screen if nobody else keeps it; it is not hidden.
void setAlertWindow(UIWindow* window);
/// Takes the window, if there is one, off the screen and lets go of it. Its root controller stays.
void dropAlertWindow();
/// Takes the window, if there is one, off the screen and lets go of it and of its root controller at once.
void closeAlertWindow();

/// Whether a tablet shows a sheet as a popover without an arrow over the whole window; a phone never does.
enum class Popover {
  none,
  anchored,
  anchoredWhereKnown,  ///< on systems that know popovers
};
/// Presents a sheet or alert in a window of its own, full-screen and just below the system's own alerts. `completion`,
/// which may be nil, runs when the presentation has ended. Gives the window's number.
unsigned presentAlert(UIAlertController* alert, Popover popover = Popover::none,
                      const Block<void()>* completion = nullptr);

/// The "Cancel" button: closes the window, nothing else.
UIAlertAction* cancelAction();
/// Presents an alert with one button, "OK", which closes the window.
void presentMessage(NSString* title, NSString* message, UIAlertActionStyle style = UIAlertActionStyle::standard);
/// Asks with the buttons "YES", which runs `action`, and "Cancel", which closes the window.
void confirm(NSString* title, NSString* message, const Block<void(UIAlertAction*)>* action);
