#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// Shows a part of what is larger than the view.
struct UIScrollView : UIView {
  CGSize contentSize;

  /// Moves the content: that point of it comes to the upper left corner.
  void setContentOffset(CGPoint offset) { scrolled = offset; }
};

/// Scrolls whatever the view stands in, as a person does to get at it, until it shows as far as it can.
void scrollToVisible(UIView* view);

void defineUIScrollView();

}  // namespace sim
