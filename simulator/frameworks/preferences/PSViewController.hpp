#pragma once

#include "simulator/frameworks/preferences/PSSpecifier.hpp"
#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim {

/// A controller of the settings application.
struct PSViewController : UIViewController {
  Ref<PSSpecifier> specifier;                    ///< the row that led here; nil for none
  UIViewController* parentController = nullptr;  ///< where that row is; not kept
  UIViewController* rootController = nullptr;    ///< the navigation controller; not kept

  /// The row's name becomes the title.
  void setSpecifier(PSSpecifier* row);
  /// What the preferences daemon has for the row's `key` in its domain `defaults`, else the row's `default`. Without
  /// `defaults` it is the settings application's own domain.
  id readPreferenceValue(PSSpecifier* row);
  /// Tells the preferences daemon, which writes its file when it likes, and posts the row's `PostNotification`.
  void setPreferenceValue(id value, PSSpecifier* row);
  void pushController(UIViewController* controller, bool animated);
};

void definePSViewController();

}  // namespace sim
