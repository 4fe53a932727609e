// What a sheet or an alert looks like: title, message, text fields and buttons.
#pragma once

#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/frameworks/uikit/UIScrollView.hpp"

namespace sim {

/// A button.
struct UIAlertControllerActionView : UIView {
  Ref<UIAlertAction> action;
};

struct UIAlertControllerView : UIView {
  UIAlertController* controller = nullptr;  ///< not kept: it keeps this view; nil once it has gone
  bool gaveFocus = false;                   ///< the first text field has had the focus, which comes with the alert

  /// Lays everything out anew, in the middle of the window, at its lower edge, or where a tablet's popover belongs.
  void layoutSubviews();
};

/// Given to the surrounding autorelease pool.
UIAlertControllerView* makeAlertView(UIAlertController* controller);
/// The button of the action; nil when it is not shown.
UIAlertControllerActionView* buttonOf(UIAlertController* alert, const UIAlertAction* action);

void defineUIAlertControllerView();

}  // namespace sim
