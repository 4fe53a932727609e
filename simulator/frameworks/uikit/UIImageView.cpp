#include "simulator/frameworks/uikit/UIImageView.hpp"

namespace sim {

UIImageView* UIImageView::initWithImage(UIImage* shown) {
  auto* self = send<UIImageView*>(this, "initWithFrame:"_sel, CGRect{});
  if (self != nullptr) self->image = shown;
  return self;
}

void defineUIImageView() {
  ClassBuilder<UIImageView, UIView>("UIImageView", "UIView")
      .method<&UIImageView::initWithImage>("initWithImage:")
      .property<&UIImageView::image>("image")
      .add();
}

}  // namespace sim
