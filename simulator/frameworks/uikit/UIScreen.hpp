#pragma once

#include "simulator/frameworks/uikit/geometry.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

enum class Orientation { portrait, landscape };

/// The device's screen.
struct UIScreen : Object {
  static UIScreen* mainScreen(Class cls);
  CGRect bounds();
};

/// What of a screen depends on how the device is held.
struct HeldScreen {
  CGSize size;
  UIEdgeInsets safeArea;  ///< what bars, a rounded edge or a notch take
  CGFloat keyboard = 0;   ///< the keyboard's height
};
/// The screen as the device is held. That of a small phone until it is said.
const HeldScreen& heldScreen();
CGRect screenBounds();
void setScreen(const HeldScreen& portrait, const HeldScreen& landscape);
Orientation orientation();
/// Turns the device. Windows that stand already keep their frames.
void setOrientation(Orientation orientation);

void defineUIScreen();

}  // namespace sim
