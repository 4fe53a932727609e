#pragma once

#include "simulator/frameworks/uikit/UIControl.hpp"

namespace sim {

/// A switch. Whatever size it is given, it is 51 by 31 points.
struct UISwitch : UIControl {
  static constexpr CGSize size{51, 31};
  bool on = false;

  UISwitch* initWithFrame(CGRect frame);
  void setOn(bool shown, bool animated);
};

void defineUISwitch();

}  // namespace sim
