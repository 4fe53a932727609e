#pragma once

namespace sim {

/// Lets `NSTask` wait for its program itself: Foundation's own waiting counts on a clock that runs.
void installTaskWaiting();

}  // namespace sim
