// Shows notifications as banners, in the old generation.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"
#include "simulator/runtime/blocks.hpp"

namespace sim::old {

struct SBNotificationBannerDestination : Object {
  /// The completion is called with whether the banner is shown.
  void post(NCNotificationRequest* request, id coalesced, RawBool modal, id sourceAction,
            const BlockLiteral* completion);
};

void defineSBNotificationBannerDestination();

}  // namespace sim::old
