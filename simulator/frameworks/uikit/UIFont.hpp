#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// The system's font in one size.
struct UIFont : Object {
  CGFloat pointSize = 0;

  static UIFont* systemFontOfSize(Class cls, CGFloat size);
};

/// The height that a text takes in that width, both in points. There are no glyphs here: their widths are a guess.
CGFloat textHeight(id text, CGFloat fontSize, CGFloat width);

void defineUIFont();

}  // namespace sim
