// A person at a keyboard.
#pragma once

#include <ostream>

#include "simulator/control/session.hpp"

namespace sim {

/// Plays what is typed on standard input, on the options' device with a clock that runs by itself, until "quit", the
/// input's end or a stop. What cannot be done is told on `errors`, and the next line may be typed.
void runConsole(Session::Options options, std::ostream& output, std::ostream& errors);

}  // namespace sim
