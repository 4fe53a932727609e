#pragma once

#include "simulator/frameworks/uikit/geometry.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// The device's screen.
struct UIScreen : Object {
  static UIScreen* mainScreen(Class cls);
  CGRect bounds();
};

/// The screen's size in points: 375 by 667 on a phone, 768 by 1024 on a tablet.
CGRect screenBounds();

void defineUIScreen();

}  // namespace sim
