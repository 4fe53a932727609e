#include "simulator/homescreen/common/SBLeafIcon.hpp"

namespace sim {

void defineSBLeafIcon() {
  ClassBuilder<SBLeafIcon, SBIcon>("SBLeafIcon", "SBIcon").method<&SBLeafIcon::leafIdentifier>("leafIdentifier").add();
}

}  // namespace sim
