#include "simulator/frameworks/uikit/UILabel.hpp"

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

void UILabel::setText(id changed) { text = copied(changed); }

UILabel* addLabel(UIView* superview, CGRect frame, id text, const LabelLook& look) {
  auto* label = addView<UILabel>(superview, "UILabel"_cls, frame);
  label->setText(text);
  label->font = send<UIFont*>("UIFont"_cls, "systemFontOfSize:"_sel, look.fontSize);
  label->textAlignment = look.alignment;
  label->textColor = look.color;
  return label;
}

void defineUILabel() {
  ClassBuilder<UILabel, UIView>("UILabel", "UIView")
      .getter<&UILabel::text>("text")
      .method<&UILabel::setText>("setText:")
      .property<&UILabel::textColor>("textColor")
      .property<&UILabel::font>("font")
      .property<&UILabel::textAlignment>("textAlignment")
      .add();
}

}  // namespace sim
