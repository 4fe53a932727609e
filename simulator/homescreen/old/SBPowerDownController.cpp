#include "simulator/homescreen/old/SBPowerDownController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

void SBPowerDownController::orderFront() { homeState().poweringDown = true; }

void defineSBPowerDownController() {
  ClassBuilder<SBPowerDownController>("SBPowerDownController", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBPowerDownController::orderFront>("orderFront")
      .add();
}

}  // namespace sim::old
