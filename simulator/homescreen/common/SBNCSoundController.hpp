// Sounds for notifications.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim {

struct SBNCSoundController : Object {
  void playSound(NCNotificationRequest* request);
};

void defineSBNCSoundController();

}  // namespace sim
