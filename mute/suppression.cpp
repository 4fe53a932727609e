#include "mute/suppression.hpp"

#include "mute/registry.hpp"
#include "settings/settings.hpp"

namespace mute {
namespace {

// A muted application's request goes no further: not even its completion is called. With the gate off the
// list is not looked at. The master switch plays no part.
template <class... Arguments>
void unlessMuted(bool gate, void (*platform)(NSObject*, SEL, NCNotificationRequest*, Arguments...), NSObject* self,
                 SEL selector, NCNotificationRequest* request, Arguments... arguments) {
  if (gate && isMuted(request)) return;
  platform(self, selector, request, arguments...);
}

}  // namespace

void turnOnScreen(NSObject* controller, SEL selector, NCNotificationRequest* request) {
  unlessMuted(settings.muteLockScreen, platformTurnOnScreen, controller, selector, request);
}

void playSound(NSObject* controller, SEL selector, NCNotificationRequest* request) {
  unlessMuted(settings.muteLockScreen, platformPlaySound, controller, selector, request);
}

void postToDashBoard(NSObject* dispatcher, SEL selector, NCNotificationRequest* request, NSObject* coalesced) {
  unlessMuted(settings.muteLockScreen, platformPostToDashBoard, dispatcher, selector, request, coalesced);
}

void postBannerWithCompletion(NSObject* destination, SEL selector, NCNotificationRequest* request, NSObject* coalesced,
                              NSUInteger modal, NSObject* sourceAction, const void* completion) {
  unlessMuted(settings.muteBanners, platformPostBannerWithCompletion, destination, selector, request, coalesced, modal,
              sourceAction, completion);
}

void postToCoverSheet(NSObject* dispatcher, SEL selector, NCNotificationRequest* request) {
  unlessMuted(settings.muteLockScreen, platformPostToCoverSheet, dispatcher, selector, request);
}

void postBanner(NSObject* destination, SEL selector, NCNotificationRequest* request) {
  unlessMuted(settings.muteBanners, platformPostBanner, destination, selector, request);
}

}  // namespace mute
