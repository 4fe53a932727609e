#include "simulator/frameworks/uikit/UITouch.hpp"

namespace sim {

CGPoint UITouch::locationInView(UIView* target) { return target != nullptr ? target->fromWindow(location) : location; }

CGPoint UITouch::previousLocationInView(UIView* target) {
  return target != nullptr ? target->fromWindow(previousLocation) : previousLocation;
}

void defineUITouch() {
  ClassBuilder<UITouch>("UITouch", "NSObject")
      .getter<&UITouch::view>("view")
      .method<&UITouch::locationInView>("locationInView:")
      .method<&UITouch::previousLocationInView>("previousLocationInView:")
      .add();
}

}  // namespace sim
