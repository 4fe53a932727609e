#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim {

const PlatformActions& platformActions() { return home().generation == Generation::old ? oldActions : newActions; }

}  // namespace sim
