// Fingers on the screen: what they come down on, and what that does.
#pragma once

#include <string>
#include <vector>

#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/refused.hpp"

namespace sim::touches {

/// The middle of the view, on the screen, with the windows as they are. Throws `Covered` when a finger there would come
/// down on something else than the view and what is in it; `name` is what the person calls it.
CGPoint reach(UIView* view, const std::string& name);

/// The view there, whatever it is. Throws `Covered` while the screen is off, and `Refused` outside it.
UIView* touched(CGPoint onScreen);

/// A button of a sheet or an alert.
struct Button {
  UIAlertController* alert;
  UIAlertAction* action;
};
/// The button of that title, which is scrolled to if need be. Throws `Refused`, or `Covered`.
Button requireButton(const std::string& title);
/// The sheet or alert that is on top; nil when there is none.
UIAlertController* topAlert();
/// The text field that has the focus. Throws `Refused`.
UITextField* requireFocus();

}  // namespace sim::touches
