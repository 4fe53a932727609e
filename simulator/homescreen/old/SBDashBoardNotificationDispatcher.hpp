// Puts notifications on the old generation's lock screen.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim::old {

struct SBDashBoardNotificationDispatcher : Object {
  void post(NCNotificationRequest* request, id coalesced);
};

void defineSBDashBoardNotificationDispatcher();

}  // namespace sim::old
