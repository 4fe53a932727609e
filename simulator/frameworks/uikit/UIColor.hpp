#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// A grey tone.
struct UIColor : Object {
  CGFloat white = 0;  ///< 0 is black, 1 is white
  CGFloat alpha = 1;  ///< 0 is clear

  static UIColor* colorWithWhite(Class cls, CGFloat white, CGFloat alpha);
  static UIColor* blackColor(Class cls);
  static UIColor* whiteColor(Class cls);
  static UIColor* clearColor(Class cls);
  /// The same tone, with that opacity in place of its own.
  UIColor* colorWithAlphaComponent(CGFloat alpha);
};

void defineUIColor();

}  // namespace sim
