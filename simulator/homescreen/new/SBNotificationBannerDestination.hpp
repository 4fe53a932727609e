// Shows notifications as banners, in the new generation.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim::recent {

struct SBNotificationBannerDestination : Object {
  void post(NCNotificationRequest* request);
};

void defineSBNotificationBannerDestination();

}  // namespace sim::recent
