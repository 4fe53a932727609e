#include "simulator/homescreen/common/NCNotificationRequest.hpp"

#include "platform/dispatch.hpp"

namespace sim {

DeliveredNotification delivered(NCNotificationRequest* request) {
  return {text(request->sectionIdentifier), request->text};
}

void showBanner(NCNotificationRequest* request) {
  constexpr std::int64_t stays = 5'000'000'000;
  static unsigned long shown = 0;
  homeState().banners.push_back(delivered(request));
  homeState().banners.back().number = ++shown;
  dispatch::afterOnMain(stays, [number = shown] {
    std::erase_if(homeState().banners, [&](const DeliveredNotification& banner) { return banner.number == number; });
  });
}

void defineNCNotificationRequest() {
  ClassBuilder<NCNotificationRequest>("NCNotificationRequest", "NSObject")
      .property<&NCNotificationRequest::sectionIdentifier>("sectionIdentifier")
      .add();
}

}  // namespace sim
