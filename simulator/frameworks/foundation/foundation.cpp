#include "simulator/frameworks/foundation/foundation.hpp"

#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/foundation/subpaths.hpp"
#include "simulator/frameworks/foundation/user_defaults.hpp"

namespace sim {

void installFoundationAdditions() {
  static constexpr void (*additions[])() = {installUserDefaults, installPropertyListWriting, installSubpaths};
  for (const auto install : additions) install();
}

}  // namespace sim
