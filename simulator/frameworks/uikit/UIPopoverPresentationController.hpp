#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// Where a tablet shows a sheet.
struct UIPopoverPresentationController : Object {
  Ref<UIView> sourceView;
  CGRect sourceRect;                         ///< in the source view's coordinates
  NSUInteger permittedArrowDirections = 15;  ///< 0 means no arrow, 15 any
};

void defineUIPopoverPresentationController();

}  // namespace sim
