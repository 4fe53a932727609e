#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim {

const PlatformActions& platformActions() { return homeState().generation == Generation::old ? oldActions : newActions; }

}  // namespace sim
