// Wakes the screen for notifications.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim {

struct SBNCScreenController : Object {
  void turnOnScreen(NCNotificationRequest* request);
};

void defineSBNCScreenController();

}  // namespace sim
