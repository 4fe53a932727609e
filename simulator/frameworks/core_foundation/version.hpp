// The system's generation.
#pragma once

namespace sim {

/// Sets the framework's version number, by which the add-on tells the system's generation. To be called before the
/// add-on is mapped.
void setCoreFoundationVersion(double version);

}  // namespace sim
