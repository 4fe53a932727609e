#pragma once

#include "simulator/frameworks/uikit/UIFont.hpp"
#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// A line of text.
struct UILabel : UIView {
  Ref<objc_object> text;        ///< nil for none
  Ref<UIColor> textColor;       ///< black if nil
  Ref<UIFont> font;             ///< the system's font of 17 points if nil
  NSInteger textAlignment = 0;  ///< 1 is centred

  void setText(id text);
};

void defineUILabel();

}  // namespace sim
