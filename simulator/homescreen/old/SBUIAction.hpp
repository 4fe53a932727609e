// An entry of the quick-action list as it is shown.
#pragma once

#include "simulator/frameworks/uikit/UIImage.hpp"
#include "simulator/frameworks/uikit/UIView.hpp"
#include "simulator/runtime/blocks.hpp"

namespace sim::old {

struct SBUIAction : Object {
  Ref<objc_object> title, subtitle;  ///< texts
  Ref<UIImage> image;
  Ref<UIView> badgeView;
  BlockRef handler;

  SBUIAction* initWithTitle(id title, id subtitle, UIImage* image, UIView* badgeView, const BlockLiteral* handler);
};

void defineSBUIAction();

}  // namespace sim::old
