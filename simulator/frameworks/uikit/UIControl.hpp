#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// What may happen to a control; one bit each.
namespace UIControlEvents {
inline constexpr NSUInteger valueChanged = 1 << 12;
}

/// A view that tells others what a person does with it. It does not keep those it tells.
struct UIControl : UIView {
  bool enabled = true;

  /// From now on that message, with the control as its argument, goes to the target at such an event.
  void addTarget(id target, SEL action, NSUInteger events);
  void sendActions(NSUInteger events);

 private:
  struct Action {
    id target;
    SEL selector;
    NSUInteger events;
  };
  std::vector<Action> actions_;
};

void defineUIControl();

}  // namespace sim
