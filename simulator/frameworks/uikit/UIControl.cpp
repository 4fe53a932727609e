#include "simulator/frameworks/uikit/UIControl.hpp"

namespace sim {

void UIControl::addTarget(id target, SEL action, NSUInteger events) { actions_.push_back({target, action, events}); }

void UIControl::sendActions(NSUInteger events) {
  // An action may take the control away.
  const Ref<UIControl> self = this;
  const auto actions = actions_;
  for (const auto& [target, selector, at] : actions)
    if ((at & events) != 0) send(target, selector, id{this});
}

void defineUIControl() {
  ClassBuilder<UIControl, UIView>("UIControl", "UIView")
      .getter<&UIControl::enabled>("isEnabled")
      .property<&UIControl::enabled>("enabled")
      .method<&UIControl::addTarget>("addTarget:action:forControlEvents:")
      .method<&UIControl::sendActions>("sendActionsForControlEvents:")
      .add();
}

}  // namespace sim
