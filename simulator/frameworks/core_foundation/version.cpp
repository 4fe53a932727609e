#include "simulator/frameworks/core_foundation/version.hpp"

#include "platform/CoreFoundation.hpp"

double kCFCoreFoundationVersionNumber = 0;

namespace sim {

void setCoreFoundationVersion(double version) { kCFCoreFoundationVersionNumber = version; }

}  // namespace sim
