#include "simulator/homescreen/common/SBApplication.hpp"

namespace sim {

void defineSBApplication() {
  ClassBuilder<SBApplication>("SBApplication", "NSObject")
      .property<&SBApplication::info>("info")
      .method<&SBApplication::bundleIdentifier>("bundleIdentifier")
      .method<&SBApplication::displayName>("displayName")
      .add();
}

}  // namespace sim
