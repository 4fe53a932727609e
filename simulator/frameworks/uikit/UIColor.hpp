#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// A colour; each part lies between 0 and 1.
struct UIColor : Object {
  CGFloat red = 0, green = 0, blue = 0;
  CGFloat alpha = 1;  ///< 0 is clear

  /// A grey tone: 0 is black, 1 is white.
  static UIColor* colorWithWhite(Class cls, CGFloat white, CGFloat alpha);
  static UIColor* colorWithRed(Class cls, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
  static UIColor* blackColor(Class cls);
  static UIColor* whiteColor(Class cls);
  static UIColor* clearColor(Class cls);
  /// The same tone, with that opacity in place of its own.
  UIColor* colorWithAlphaComponent(CGFloat alpha);
};

void defineUIColor();

}  // namespace sim
