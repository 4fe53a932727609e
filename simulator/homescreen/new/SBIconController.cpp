#include "simulator/homescreen/new/SBIconController.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::recent {

SBIconController* SBIconController::init() {
  iconManager = make<SBHIconManager>("SBHIconManager"_cls);
  return this;
}

void defineSBIconController() {
  ClassBuilder<SBIconController>("SBIconController", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBIconController::init>("init")
      .getter<&SBIconController::iconManager>("iconManager")
      .add();
}

}  // namespace sim::recent
