// Puts notifications on the new generation's lock screen.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim::recent {

struct CSNotificationDispatcher : Object {
  void post(NCNotificationRequest* request);
};

void defineCSNotificationDispatcher();

}  // namespace sim::recent
