#include "simulator/homescreen/new/CSNotificationDispatcher.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::recent {

void CSNotificationDispatcher::post(NCNotificationRequest* request) {
  homeState().lockScreen.push_back(delivered(request));
}

void defineCSNotificationDispatcher() {
  ClassBuilder<CSNotificationDispatcher>("CSNotificationDispatcher", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&CSNotificationDispatcher::post>("postNotificationRequest:")
      .add();
}

}  // namespace sim::recent
