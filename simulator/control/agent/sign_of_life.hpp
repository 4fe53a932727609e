// How the driver tells a process that works long from one that hangs.
#pragma once

namespace sim {

/// From now on the driver is told about every second that the process is alive, as long as the calling thread does
/// something.
void giveSignsOfLife();

}  // namespace sim
