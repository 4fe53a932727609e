// What a person sees of the settings application, read from its views.
#pragma once

#include "simulator/control/pane.hpp"

namespace sim {

PaneOnScreen readPane();

}  // namespace sim
