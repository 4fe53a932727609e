#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// A spinner.
struct UIActivityIndicatorView : UIView {
  NSInteger activityIndicatorViewStyle = 1;  ///< 0 is large and white, 1 white, 2 grey
  bool animating = false;

  UIActivityIndicatorView* initWithActivityIndicatorStyle(NSInteger style);
  void startAnimating() { animating = true; }
  void stopAnimating() { animating = false; }
};

void defineUIActivityIndicatorView();

}  // namespace sim
