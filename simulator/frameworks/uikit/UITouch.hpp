#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// A finger on the screen. Whoever moves it sets the members.
struct UITouch : Object {
  CGPoint location;          ///< in the window's coordinates
  CGPoint previousLocation;  ///< where it was before its latest movement
  Ref<UIView> view;          ///< what it came down on

  /// In the view's coordinates; in the window's for nil.
  CGPoint locationInView(UIView* view);
  CGPoint previousLocationInView(UIView* view);
};

void defineUITouch();

}  // namespace sim
