#include "simulator/homescreen/new/SBNotificationBannerDestination.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::recent {

void SBNotificationBannerDestination::post(NCNotificationRequest* request) { showBanner(request); }

void defineSBNotificationBannerDestination() {
  ClassBuilder<SBNotificationBannerDestination>("SBNotificationBannerDestination", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBNotificationBannerDestination::post>("postNotificationRequest:")
      .add();
}

}  // namespace sim::recent
