#pragma once

namespace sim {

/// Lets delayed messages go by the main queue, as time passes: Foundation's own would come by the time that the user
/// sets, and what one of them raises would be caught and lost.
void installDelayedMessages();

}  // namespace sim
