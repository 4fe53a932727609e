// Paths as on a phone.
#pragma once

namespace sim {

/// Only slashes part a path from here on: without this, colons and backslashes in names address something else.
void installPathHandling();

}  // namespace sim
