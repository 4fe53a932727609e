// What is on the screen, in plain text.
#pragma once

#include <string>

#include "simulator/control/pane.hpp"
#include "simulator/control/screen.hpp"

namespace sim {

/// The screen as a person sees it: lines that end in a line feed.
std::string printed(const Screen& screen);
/// The settings application's, likewise.
std::string printed(const PaneOnScreen& pane);

}  // namespace sim
