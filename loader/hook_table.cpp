#include "loader/hook_table.hpp"

#include "appdata/backup.hpp"
#include "appdata/caches.hpp"
#include "appdata/file_manager.hpp"
#include "appdata/reset.hpp"
#include "appdata/restore.hpp"
#include "badges/badges.hpp"
#include "labels/label_views.hpp"
#include "labels/names.hpp"
#include "menu/action_menu.hpp"
#include "menu/dismissal.hpp"
#include "menu/download_flag.hpp"
#include "menu/open_app.hpp"
#include "menu/overlay.hpp"
#include "menu/shortcut.hpp"
#include "menu/swipe.hpp"
#include "mute/sheet.hpp"
#include "mute/suppression.hpp"
#include "platform/hooking.hpp"
#include "state/generation.hpp"

namespace loader {

/// Nowhere defined: what the compiler says when a row would call it.
void theSelectorsColonsMustMatchTheArguments();

namespace {

enum class Group { both, oldOnly, newOnly };

/// In a row, in place of a class: the generation's menu host.
constexpr const char* theMenuHost = nullptr;

/// One hooked or added method. `install` carries the function, and for a hook the slot of the
/// implementation that it replaces.
struct Row {
  Group group;
  const char* className;
  const char* selector;
  void (*install)(Class cls, SEL selector);
};

/// A selector has a colon for each argument of its method.
template <class Result, class Self, class... Arguments>
consteval void checkColons(const char* selector, Result (*)(Self*, SEL, Arguments...)) {
  std::size_t colons = 0;
  for (const char* character = selector; *character != '\0'; ++character) colons += *character == ':' ? 1 : 0;
  if (colons != sizeof...(Arguments)) theSelectorsColonsMustMatchTheArguments();
}

/// Replaces a method. The replacement and the slot must be of one type, the method's.
template <auto* Replacement, auto* Slot>
  requires std::is_same_v<decltype(Replacement), std::remove_pointer_t<decltype(Slot)>>
consteval Row hook(Group group, const char* className, const char* selector) {
  checkColons(selector, Replacement);
  return {group, className, selector, [](Class cls, SEL message) {
            MSHookMessageEx(cls, message, reinterpret_cast<IMP>(Replacement), reinterpret_cast<IMP*>(Slot));
          }};
}

/// Adds a method. Its type encoding follows from the function's type.
template <auto* Function>
consteval Row add(Group group, const char* className, const char* selector) {
  checkColons(selector, Function);
  return {group, className, selector, [](Class cls, SEL message) {
            class_addMethod(cls, message, reinterpret_cast<IMP>(Function), encodingOf(Function));
          }};
}

using enum Group;

// In the order of installation.
constexpr Row table[] = {
    hook<menu::isDownloadingIcon, &menu::platformIsDownloadingIcon>(both, "SBDownloadingIcon", "isDownloadingIcon"),
    hook<menu::uninstalledByUser, &menu::platformUninstalledByUser>(both, "SBDownloadingIcon", "uninstalledByUser"),
    hook<mute::applicationDidFinishLaunching, &mute::platformApplicationDidFinishLaunching>(
        both, "SpringBoard", "applicationDidFinishLaunching:"),
    add<mute::launchMuteMenu>(both, "SpringBoard", "launchMuteMenu:"),
    hook<mute::turnOnScreen, &mute::platformTurnOnScreen>(both, "SBNCScreenController",
                                                          "turnOnScreenForNotificationRequest:"),
    hook<mute::playSound, &mute::platformPlaySound>(both, "SBNCSoundController", "playSoundForNotificationRequest:"),
    hook<labels::layoutSubviews, &labels::platformLayoutSubviews>(both, "SBIconView", "layoutSubviews"),
    add<labels::recievedIconLablelUpdate>(both, "SBIconView", "recievedIconLablelUpdate"),

    hook<menu::launchWithSettings, &menu::platformLaunchWithSettings>(
        oldOnly, "SBIcon", "launchFromLocation:context:activationSettings:actions:"),
    hook<menu::launch, &menu::platformLaunch>(newOnly, "SBIcon", "launchFromLocation:context:"),
    hook<menu::addTouchedIconView, &menu::platformAddTouchedIconView>(both, theMenuHost, "_addTouchedIconView:"),
    hook<menu::touchMoved, &menu::platformTouchMoved>(both, theMenuHost, "icon:touchMoved:"),

    add<menu::showAlertView>(both, theMenuHost, "showAlertView"),
    add<badges::clearBadges>(both, theMenuHost, "clearBadges"),
    add<badges::setBadges>(both, theMenuHost, "setBadges"),
    add<appdata::clearCaches>(both, theMenuHost, "clearCaches"),
    add<appdata::clearCachesSucces>(both, theMenuHost, "clearCachesSucces"),
    add<appdata::deleteBackUp>(both, theMenuHost, "deleteBackUp"),
    add<appdata::deleteBackUpSucces>(both, theMenuHost, "deleteBackUpSucces"),
    add<appdata::backUpData>(both, theMenuHost, "backUpData"),
    add<appdata::backUpDataSucces>(both, theMenuHost, "backUpDataSucces"),
    add<appdata::restoreData>(both, theMenuHost, "restoreData"),
    add<appdata::restoreDataSucces>(both, theMenuHost, "restoreDataSucces"),
    add<appdata::resetAppData>(both, theMenuHost, "resetAppData"),
    add<appdata::resetAppDataSucces>(both, theMenuHost, "resetAppDataSucces"),
    add<appdata::openInFilzaApp>(both, theMenuHost, "openInFilzaApp"),
    add<appdata::openInFilzaData>(both, theMenuHost, "openInFilzaData"),
    add<mute::muteNotifications>(both, theMenuHost, "muteNotifications"),
    add<menu::openApps>(both, theMenuHost, "openApps"),
    add<menu::showLoadingView>(both, theMenuHost, "showLoadingView"),

    hook<menu::shouldActivateForceTouchItem, &menu::platformShouldActivateForceTouchItem>(
        oldOnly, "SBIconController",
        "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:"),
    hook<labels::iconName, &labels::platformIconName>(oldOnly, "SBApplicationIcon", "displayName"),
    hook<labels::iconNameForLocation, &labels::platformIconNameForLocation>(oldOnly, "SBApplicationIcon",
                                                                            "displayNameForLocation:"),
    hook<labels::applicationName, &labels::platformApplicationName>(oldOnly, "SBApplication", "displayName"),
    hook<menu::applicationShortcutItems, &menu::platformApplicationShortcutItems>(
        oldOnly, "SBUIAppIconForceTouchControllerDataProvider", "applicationShortcutItems"),
    hook<menu::forceTouchState, &menu::platformForceTouchState>(oldOnly, "SBUIAppIconForceTouchController", "state"),
    hook<menu::initAction, &menu::platformInitAction>(oldOnly, "SBUIAction",
                                                      "initWithTitle:subtitle:image:badgeView:handler:"),
    hook<menu::setInScreenOffMode, &menu::platformSetInScreenOffMode>(oldOnly, "SBDashBoardViewController",
                                                                      "setInScreenOffMode:forAutoUnlock:"),
    hook<menu::setInScreenOffModeFromSource, &menu::platformSetInScreenOffModeFromSource>(
        oldOnly, "SBDashBoardViewController", "setInScreenOffMode:forAutoUnlock:fromUnlockSource:"),
    hook<menu::orderFront, &menu::platformOrderFront>(oldOnly, "SBPowerDownController", "orderFront"),
    hook<mute::postToDashBoard, &mute::platformPostToDashBoard>(oldOnly, "SBDashBoardNotificationDispatcher",
                                                                "postNotificationRequest:forCoalescedNotification:"),
    hook<mute::postBannerWithCompletion, &mute::platformPostBannerWithCompletion>(
        oldOnly, "SBNotificationBannerDestination",
        "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:"),
    hook<labels::initWithContentType, &labels::platformInitWithContentType>(oldOnly, "SBIconView",
                                                                            "initWithContentType:"),

    hook<menu::shouldActivateItem, &menu::platformShouldActivateItem>(
        newOnly, "SBHIconManager", "iconView:shouldActivateApplicationShortcutItem:atIndex:"),
    hook<menu::shortcutItemsForIconView, &menu::platformShortcutItemsForIconView>(
        newOnly, "SBHIconManager", "iconView:applicationShortcutItemsWithProposedItems:"),
    hook<labels::iconName, &labels::platformIconName>(newOnly, "SBApplicationIcon", "displayName"),
    hook<labels::iconNameForLocation, &labels::platformIconNameForLocation>(newOnly, "SBApplicationIcon",
                                                                            "displayNameForLocation:"),
    hook<labels::applicationName, &labels::platformApplicationName>(newOnly, "SBApplication", "displayName"),
    hook<menu::coverSheetWillAppear, &menu::platformCoverSheetWillAppear>(newOnly, "CSCoverSheetViewController",
                                                                          "viewWillAppear:"),
    hook<menu::powerDownViewWillAnimateIn, &menu::platformPowerDownViewWillAnimateIn>(
        newOnly, "SBPowerDownViewController", "powerDownViewWillAnimateIn:"),
    hook<mute::postToCoverSheet, &mute::platformPostToCoverSheet>(newOnly, "CSNotificationDispatcher",
                                                                  "postNotificationRequest:"),
    hook<mute::postBanner, &mute::platformPostBanner>(newOnly, "SBNotificationBannerDestination",
                                                      "postNotificationRequest:"),
    hook<labels::initWithFrame, &labels::platformInitWithFrame>(newOnly, "SBIconView", "initWithFrame:"),
    hook<labels::initWithOptions, &labels::platformInitWithOptions>(newOnly, "SBIconView",
                                                                    "initWithConfigurationOptions:"),
    hook<labels::initWithOptionsAndLayout, &labels::platformInitWithOptionsAndLayout>(
        newOnly, "SBIconView", "initWithConfigurationOptions:listLayoutProvider:"),
    add<labels::registerNotification>(newOnly, "SBIconView", "_sprigDial_registerNotification"),
    add<labels::renameIconLablelUpdate>(newOnly, "SBIconView", "renameIconLablelUpdate"),
};

}  // namespace

void installHookTable() {
  const Group other = Generation::isNew() ? oldOnly : newOnly;
  for (const Row& row : table) {
    if (row.group == other) continue;
    const char* className = row.className == theMenuHost ? Generation::current().menuHost : row.className;
    row.install(objc_getClass(className), sel_registerName(row.selector));
  }
}

}  // namespace loader
