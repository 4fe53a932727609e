#include "simulator/frameworks/uikit/UIActivityIndicatorView.hpp"

namespace sim {

UIActivityIndicatorView* UIActivityIndicatorView::initWithActivityIndicatorStyle(NSInteger style) {
  auto* self = send<UIActivityIndicatorView*>(this, "initWithFrame:"_sel, CGRect{});
  if (self != nullptr) self->activityIndicatorViewStyle = style;
  return self;
}

void defineUIActivityIndicatorView() {
  using Self = UIActivityIndicatorView;
  ClassBuilder<Self, UIView>("UIActivityIndicatorView", "UIView")
      .method<&Self::initWithActivityIndicatorStyle>("initWithActivityIndicatorStyle:")
      .property<&Self::activityIndicatorViewStyle>("activityIndicatorViewStyle")
      .method<&Self::startAnimating>("startAnimating")
      .method<&Self::stopAnimating>("stopAnimating")
      .getter<&Self::animating>("isAnimating")
      .add();
}

}  // namespace sim
