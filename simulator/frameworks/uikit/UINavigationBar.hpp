#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

struct UINavigationController;

/// Tells where a person is: the way back, the title, a button of the controller's own.
struct UINavigationBar : UIView {
  static constexpr CGFloat height = 44;
  UINavigationController* controller = nullptr;  ///< not kept

  void layoutSubviews();
};

/// A button in the bar; its only subview is a label.
struct UINavigationButton : UIView {
  bool back = false;  ///< else the controller's own
};

void defineUINavigationBar();

}  // namespace sim
