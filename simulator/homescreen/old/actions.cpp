// What a person's actions send in the old generation.
#include "simulator/homescreen/common/platform_actions.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/homescreen/old/SBDashBoardNotificationDispatcher.hpp"
#include "simulator/homescreen/old/SBDashBoardViewController.hpp"
#include "simulator/homescreen/old/SBIconController.hpp"
#include "simulator/homescreen/old/SBNotificationBannerDestination.hpp"
#include "simulator/homescreen/old/SBPowerDownController.hpp"
#include "simulator/homescreen/old/SBUIAppIconForceTouchController.hpp"
#include "simulator/homescreen/old/SBUIAppIconForceTouchControllerDataProvider.hpp"

namespace sim {
namespace {

void defineClasses() {
  old::defineSBIconViewMap();
  old::defineSBIconController();
  old::defineSBUIAction();
  old::defineSBUIAppIconForceTouchControllerDataProvider();
  old::defineSBUIAppIconForceTouchController();
  old::defineSBDashBoardViewController();
  old::defineSBPowerDownController();
  old::defineSBDashBoardNotificationDispatcher();
  old::defineSBNotificationBannerDestination();
}

id menuHost() { return send<id>("SBIconController"_cls, "sharedInstance"_sel); }

void launch(SBIcon* icon, const std::string& identifier) {
  send(icon, "launchFromLocation:context:activationSettings:actions:"_sel, NSInteger{0},
       ns("home-screen tap on " + identifier), ns("activation settings for " + identifier),
       ns("actions for " + identifier));
}

std::vector<QuickActionEntry> openQuickActions(SBIconView* view) {
  auto* controller = old::SBUIAppIconForceTouchController::shared();
  controller->open(view);
  std::vector<QuickActionEntry> entries;
  for (old::SBUIAction* action : controller->actions)
    entries.push_back({text(action->title), text(action->subtitle), description(action->image)});
  return entries;
}

void chooseQuickAction(std::size_t index) { old::SBUIAppIconForceTouchController::shared()->choose(index); }
void closeQuickActions() { old::SBUIAppIconForceTouchController::shared()->close(); }

void changeScreen(const ScreenChange& change) {
  id dashBoard = sharedInstance("SBDashBoardViewController"_cls);
  if (change.unlockSource)
    send(dashBoard, "setInScreenOffMode:forAutoUnlock:fromUnlockSource:"_sel, RawBool{change.off},
         RawBool{change.autoUnlock}, *change.unlockSource);
  else send(dashBoard, "setInScreenOffMode:forAutoUnlock:"_sel, RawBool{change.off}, RawBool{change.autoUnlock});
}

void showPowerDown() { send(sharedInstance("SBPowerDownController"_cls), "orderFront"_sel); }

// The notifications that the request belongs together with.
id coalesced(NCNotificationRequest* request) { return ns("notifications of " + text(request->sectionIdentifier)); }

void postToLockScreen(NCNotificationRequest* request) {
  send(sharedInstance("SBDashBoardNotificationDispatcher"_cls), "postNotificationRequest:forCoalescedNotification:"_sel,
       request, coalesced(request));
}

void postBanner(NCNotificationRequest* request, std::uint8_t modal) {
  send(sharedInstance("SBNotificationBannerDestination"_cls),
       "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:"_sel, request,
       coalesced(request), RawBool{modal}, ns("source of " + request->text),
       makeBlock<void(BOOL)>([text = request->text] { homeState().completedBanners.push_back(text); }));
}

}  // namespace

const PlatformActions oldActions = {
    .defineClasses = defineClasses,
    // Made without knowing that it leads to a folder.
    .endOfBundleURL = "",
    .initIconView =
        [](id allocated) { return send<SBIconView*>(allocated, "initWithContentType:"_sel, NSUInteger{0}); },
    .menuHost = menuHost,
    .launch = launch,
    .openQuickActions = openQuickActions,
    .chooseQuickAction = chooseQuickAction,
    .closeQuickActions = closeQuickActions,
    .changeScreen = changeScreen,
    .showPowerDown = showPowerDown,
    .postToLockScreen = postToLockScreen,
    .postBanner = postBanner,
};

}  // namespace sim
