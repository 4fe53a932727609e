// What a person sees, read from the home screen's objects.
#pragma once

#include "simulator/control/screen.hpp"
#include "simulator/frameworks/uikit/UIAlertController.hpp"

namespace sim {

/// The screen as it is now. The events in it are forgotten.
Screen readScreen();

/// The sheet or alert of the topmost window; nil when it has none.
UIAlertController* topAlert();

}  // namespace sim
