// Fingers on the screen: what they come down on, and what that does.
#pragma once

#include <string>
#include <vector>

#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/common/home.hpp"

namespace sim::touches {

/// What a person wants to touch is there, but something lies over it. Nothing has changed.
struct Covered : BadRequest {
  using BadRequest::BadRequest;
};

/// The middle of the view, on the screen, with the windows as they are. Throws `Covered` when a finger there would come
/// down on something else than the view and what is in it; `name` is what the person calls it.
CGPoint reach(UIView* view, const std::string& name);

/// The view there, whatever it is. Throws `Covered` while the screen is off, and `BadRequest` outside it.
UIView* touched(CGPoint onScreen);

/// A button of a sheet or an alert.
struct Button {
  UIAlertController* alert;
  UIAlertAction* action;
};
/// The button of that title, which is scrolled to if need be. Throws `BadRequest`, or `Covered`.
Button requireButton(const std::string& title);
/// The text field that has the focus. Throws `BadRequest`.
UITextField* requireFocus();

}  // namespace sim::touches
