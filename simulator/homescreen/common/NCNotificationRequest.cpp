#include "simulator/homescreen/common/NCNotificationRequest.hpp"

namespace sim {

DeliveredNotification delivered(NCNotificationRequest* request) {
  return {text(request->sectionIdentifier), request->text};
}

void defineNCNotificationRequest() {
  ClassBuilder<NCNotificationRequest>("NCNotificationRequest", "NSObject")
      .property<&NCNotificationRequest::sectionIdentifier>("sectionIdentifier")
      .add();
}

}  // namespace sim
