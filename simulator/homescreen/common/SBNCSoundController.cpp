#include "simulator/homescreen/common/SBNCSoundController.hpp"

namespace sim {

void SBNCSoundController::playSound(NCNotificationRequest* request) {
  homeState().events.push_back("sound for " + delivered(request).id);
}

void defineSBNCSoundController() {
  ClassBuilder<SBNCSoundController>("SBNCSoundController", "NSObject")
      .method<&SBNCSoundController::playSound>("playSoundForNotificationRequest:")
      .add();
}

}  // namespace sim
