#include "simulator/homescreen/old/SBDashBoardNotificationDispatcher.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

void SBDashBoardNotificationDispatcher::post(NCNotificationRequest* request, id coalesced) {
  homeState().lockScreen.push_back(delivered(request));
  homeState().posted.push_back({"lock screen", request->text, textOrNone(coalesced), {}, false});
}

void defineSBDashBoardNotificationDispatcher() {
  ClassBuilder<SBDashBoardNotificationDispatcher>("SBDashBoardNotificationDispatcher", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBDashBoardNotificationDispatcher::post>("postNotificationRequest:forCoalescedNotification:")
      .add();
}

}  // namespace sim::old
