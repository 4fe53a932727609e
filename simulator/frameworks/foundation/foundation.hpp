// What Foundation on a phone does and GNUstep's does not, or does otherwise.
#pragma once

namespace sim {

/// Makes Foundation behave as a phone's: property lists are written as XML, folders can be listed with all that
/// lies below them, nothing is written to the user's home. To be called once, before anything else uses
/// Foundation.
void installFoundationAdditions();

}  // namespace sim
