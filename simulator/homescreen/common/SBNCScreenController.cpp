#include "simulator/homescreen/common/SBNCScreenController.hpp"

namespace sim {

void SBNCScreenController::turnOnScreen(NCNotificationRequest* request) {
  homeState().screenOn = true;
  homeState().events.push_back("screen woken by " + delivered(request).id);
}

void defineSBNCScreenController() {
  ClassBuilder<SBNCScreenController>("SBNCScreenController", "NSObject")
      .method<&SBNCScreenController::turnOnScreen>("turnOnScreenForNotificationRequest:")
      .add();
}

}  // namespace sim
