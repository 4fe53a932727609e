// A notification on its way to the places that show it.
#pragma once

#include "simulator/homescreen/common/home.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct NCNotificationRequest : Object {
  Ref<objc_object> sectionIdentifier;  ///< the application's bundle identifier
  std::string text;
};

/// The request as it arrives at a place.
DeliveredNotification delivered(NCNotificationRequest* request);
/// Shows it as a banner, which goes by itself after a while.
void showBanner(NCNotificationRequest* request);

void defineNCNotificationRequest();

}  // namespace sim
