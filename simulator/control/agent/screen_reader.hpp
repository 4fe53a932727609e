// What a person sees, read from the home screen's objects.
#pragma once

#include "simulator/control/screen.hpp"

namespace sim {

/// The screen as it is now. The events in it are forgotten.
Screen readScreen();

}  // namespace sim
