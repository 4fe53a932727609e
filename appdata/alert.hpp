// The one window from which every sheet, alert and overlay of the add-on is shown.
#pragma once

#include "platform/UIKit.hpp"

/// Nil while nothing is shown. Whoever shows something replaces it.
inline constinit Slot<UIWindow> alertWindow;
/// The window's root controller, from which sheets and alerts are presented.
inline constinit Slot<UIViewController> alertRootController;

/// Takes the window, if there is one, off the screen and lets go of it. Its root controller stays.
void dropAlertWindow();
/// Takes the window, if there is one, off the screen and lets go of it and of its root controller at once.
void closeAlertWindow();
/// Replaces the window by a new one, full-screen and just below the system's own alerts.
void openAlertWindow();
/// Lets a tablet show the sheet as a popover without an arrow over the whole window. Does nothing on a phone.
/// The window must be open.
void anchorPopover(UIAlertController* sheet);
/// The same, on systems that know popovers.
void anchorPopoverWhereKnown(UIAlertController* sheet);
/// Presents an alert in a window of its own.
void presentAlert(UIAlertController* alert);
/// The "Cancel" button: closes the window, nothing else.
UIAlertAction* cancelAction();
/// Presents an alert with one button, "OK", which closes the window.
void presentMessage(NSString* title, NSString* message, UIAlertActionStyle style = UIAlertActionStyle::standard);
/// Asks with the buttons "YES", which runs `action`, and "Cancel", which closes the window.
template <class Action>
void confirm(NSString* title, NSString* message, Action action) {
  auto* alert = UIAlertController::alertController(title, message, UIAlertControllerStyle::alert);
  alert->addAction(UIAlertAction::action("YES"_ns, UIAlertActionStyle::standard, static_cast<Action&&>(action)));
  alert->addAction(cancelAction());
  presentAlert(alert);
}
