#pragma once

#include "simulator/frameworks/uikit/UIControl.hpp"

namespace sim {

/// A slider between two values. What lies outside them becomes the nearer one.
struct UISlider : UIControl {
  static constexpr CGFloat height = 31;
  float value = 0, minimumValue = 0, maximumValue = 1;

  void setValue(float value);
  void setMinimumValue(float value);
  void setMaximumValue(float value);
};

void defineUISlider();

}  // namespace sim
