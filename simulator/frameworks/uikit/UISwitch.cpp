#include "simulator/frameworks/uikit/UISwitch.hpp"

namespace sim {

UISwitch* UISwitch::initWithFrame(CGRect given) {
  return sendSuper<UISwitch*>(this, "UIControl"_cls, "initWithFrame:"_sel, CGRect{given.origin, size});
}

void UISwitch::setOn(bool shown, bool) { on = shown; }

void defineUISwitch() {
  ClassBuilder<UISwitch, UIControl>("UISwitch", "UIControl")
      .method<&UISwitch::initWithFrame>("initWithFrame:")
      .getter<&UISwitch::on>("isOn")
      .property<&UISwitch::on>("on")
      .method<&UISwitch::setOn>("setOn:animated:")
      .add();
}

}  // namespace sim
