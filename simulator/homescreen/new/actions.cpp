// What a person's actions send in the new generation.
#include "simulator/homescreen/common/platform_actions.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/homescreen/new/CSCoverSheetViewController.hpp"
#include "simulator/homescreen/new/CSNotificationDispatcher.hpp"
#include "simulator/homescreen/new/SBIconController.hpp"
#include "simulator/homescreen/new/SBNotificationBannerDestination.hpp"
#include "simulator/homescreen/new/SBPowerDownViewController.hpp"
#include "simulator/homescreen/new/quick_actions.hpp"

namespace sim {
namespace {

void defineClasses() {
  recent::defineSBHIconManager();
  recent::defineSBIconController();
  recent::defineCSCoverSheetViewController();
  recent::defineSBPowerDownViewController();
  recent::defineCSNotificationDispatcher();
  recent::defineSBNotificationBannerDestination();
}

id menuHost() { return send<id>(send<id>("SBIconController"_cls, "sharedInstance"_sel), "iconManager"_sel); }

void launch(SBIcon* icon, const std::string& identifier) {
  send(icon, "launchFromLocation:context:"_sel, NSInteger{0}, ns("home-screen tap on " + identifier));
}

// The cover sheet is in front whenever the screen goes off, and when a locked one comes on.
void changeScreen(const ScreenChange& change) {
  homeState().screenOn = change.off == 0;
  if (change.off != 0 || homeState().locked)
    send(sharedInstance("CSCoverSheetViewController"_cls), "viewWillAppear:"_sel, BOOL{false});
}

void showPowerDown() {
  id controller = sharedInstance("SBPowerDownViewController"_cls);
  send(controller, "powerDownViewWillAnimateIn:"_sel, send<UIView*>(controller, "view"_sel));
}

void postToLockScreen(NCNotificationRequest* request) {
  send(sharedInstance("CSNotificationDispatcher"_cls), "postNotificationRequest:"_sel, request);
}

void postBanner(NCNotificationRequest* request, std::uint8_t) {
  send(sharedInstance("SBNotificationBannerDestination"_cls), "postNotificationRequest:"_sel, request);
}

}  // namespace

const PlatformActions newActions = {
    .defineClasses = defineClasses,
    .endOfBundleURL = "/",
    .initIconView =
        [](id allocated) { return send<SBIconView*>(allocated, "initWithConfigurationOptions:"_sel, NSUInteger{0}); },
    .menuHost = menuHost,
    .launch = launch,
    .openQuickActions = recent::openQuickActions,
    .chooseQuickAction = recent::chooseQuickAction,
    .closeQuickActions = recent::closeQuickActions,
    .changeScreen = changeScreen,
    .showPowerDown = showPowerDown,
    .postToLockScreen = postToLockScreen,
    .postBanner = postBanner,
};

}  // namespace sim
