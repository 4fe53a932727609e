#include "appdata/result.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"
#include "state/target.hpp"

void presentResult(NSString* message) { presentMessage(currentBundleIdentifier ? targetName() : nullptr, message); }
