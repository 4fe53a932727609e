#pragma once

#include <string>

namespace sim {

/// Raises an `NSException`. Nothing in the home screen catches one, but for a driver that asks for it: the process
/// ends, as on a phone.
[[noreturn]] void raiseException(const std::string& name, const std::string& reason);

}  // namespace sim
