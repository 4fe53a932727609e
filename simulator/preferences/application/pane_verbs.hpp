// What the settings application can be asked for.
#pragma once

#include <vector>

#include "simulator/control/agent/verbs.hpp"

namespace sim {

std::vector<VerbGroup> paneVerbs();

}  // namespace sim
