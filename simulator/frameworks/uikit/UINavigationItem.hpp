#pragma once

#include "simulator/frameworks/uikit/UIBarButtonItem.hpp"

namespace sim {

struct UIViewController;

/// What a navigation bar shows of a controller, besides its title.
struct UINavigationItem : Object {
  UIViewController* controller = nullptr;   ///< whose it is; not kept
  Ref<UIBarButtonItem> rightBarButtonItem;  ///< nil for none

  void setRightBarButtonItem(UIBarButtonItem* item);
};

void defineUINavigationItem();

}  // namespace sim
