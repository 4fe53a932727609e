#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// The system's font in one size.
struct UIFont : Object {
  CGFloat pointSize = 0;

  static UIFont* systemFontOfSize(Class cls, CGFloat size);
};

void defineUIFont();

}  // namespace sim
