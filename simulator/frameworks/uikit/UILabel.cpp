#include "simulator/frameworks/uikit/UILabel.hpp"

#include "simulator/frameworks/foundation/copying.hpp"

namespace sim {

void UILabel::setText(id changed) { text = copied(changed); }

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
