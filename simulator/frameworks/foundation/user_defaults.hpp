#pragma once

namespace sim {

/// Makes Foundation's own switches those of a phone, in memory alone: the user's home holds no defaults.
void installUserDefaults();

}  // namespace sim
