// Scripts: a person's lines in a file.
#pragma once

#include <ostream>

#include "simulator/control/line_editor.hpp"
#include "simulator/control/session.hpp"

namespace sim {

/// Plays a script, echoing each line that is played, and returns the program's exit status: 0, 1 when an
/// expectation failed, 2 for bad input, 3 when the home screen died. What went wrong is told on `errors`, the first
/// line with the script's line number.
int playScript(LineReader& script, const Session::Options& options, std::ostream& output, std::ostream& errors);

}  // namespace sim
