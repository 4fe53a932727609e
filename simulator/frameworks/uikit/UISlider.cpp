#include "simulator/frameworks/uikit/UISlider.hpp"

#include <algorithm>

namespace sim {

void UISlider::setValue(float changed) { value = std::max(std::min(changed, maximumValue), minimumValue); }

void UISlider::setMinimumValue(float changed) {
  minimumValue = changed;
  maximumValue = std::max(maximumValue, changed);
  setValue(value);
}

void UISlider::setMaximumValue(float changed) {
  maximumValue = changed;
  minimumValue = std::min(minimumValue, changed);
  setValue(value);
}

void defineUISlider() {
  ClassBuilder<UISlider, UIControl>("UISlider", "UIControl")
      .getter<&UISlider::value>("value")
      .method<&UISlider::setValue>("setValue:")
      .getter<&UISlider::minimumValue>("minimumValue")
      .method<&UISlider::setMinimumValue>("setMinimumValue:")
      .getter<&UISlider::maximumValue>("maximumValue")
      .method<&UISlider::setMaximumValue>("setMaximumValue:")
      .add();
}

}  // namespace sim
