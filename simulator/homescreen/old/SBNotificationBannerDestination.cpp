#include "simulator/homescreen/old/SBNotificationBannerDestination.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

void SBNotificationBannerDestination::post(NCNotificationRequest* request, id coalesced, RawBool modal, id sourceAction,
                                           const BlockLiteral* completion) {
  showBanner(request);
  homeState().posted.push_back(
      {"banner", request->text, textOrNone(coalesced), textOrNone(sourceAction), modal != RawBool{}});
  homeState().passedOn.push_back(
      {"_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:", {byteOf(modal)}});
  BlockRef{completion}(BOOL{true});
}

void defineSBNotificationBannerDestination() {
  ClassBuilder<SBNotificationBannerDestination>("SBNotificationBannerDestination", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBNotificationBannerDestination::post>(
          "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:")
      .add();
}

}  // namespace sim::old
