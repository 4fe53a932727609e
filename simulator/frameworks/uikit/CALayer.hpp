#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// What draws a view.
struct CALayer : Object {
  CGFloat cornerRadius = 0;  ///< in points
};

void defineCALayer();

}  // namespace sim
