// What a person sees, read from the home screen's objects.
#pragma once

#include "simulator/control/screen.hpp"

namespace sim {

/// The screen as it is now.
Screen readScreen();

}  // namespace sim
