#pragma once

#include "simulator/frameworks/uikit/UIImage.hpp"
#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// Shows a picture.
struct UIImageView : UIView {
  Ref<UIImage> image;

  UIImageView() { userInteractionEnabled = false; }
  /// The view has no size: pictures here have none.
  UIImageView* initWithImage(UIImage* image);
};

void defineUIImageView();

}  // namespace sim
