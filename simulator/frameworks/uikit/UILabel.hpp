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

  UILabel() { userInteractionEnabled = false; }
  void setText(id text);
};

/// How a label that the system puts up looks.
struct LabelLook {
  CGFloat fontSize = 17;
  NSInteger alignment = 1;
  Ref<UIColor> color = {};  ///< black if nil
};
/// A new label of that text, which may be nil, in the view.
UILabel* addLabel(UIView* superview, CGRect frame, id text, const LabelLook& look = {});

void defineUILabel();

}  // namespace sim
