#include "loader/hook_table.hpp"

#include "menu/action_menu.hpp"
#include "menu/dismissal.hpp"
#include "menu/download_flag.hpp"
#include "menu/shortcut.hpp"
#include "menu/swipe.hpp"
#include "platform/hooking.hpp"
#include "state/generation.hpp"

namespace loader {
namespace {

enum class Group { both, oldOnly, newOnly };

/// The generation's menu host, where a row names a class.
constexpr const char* menuHost = nullptr;

/// One hooked or added method. `install` carries the function, and for a hook the slot of the
/// implementation that it replaces.
struct Row {
  Group group;
  const char* className;
  const char* selector;
  void (*install)(Class cls, SEL selector);
};

/// Replaces a method. The replacement and the slot must be of one type, the method's.
template <auto* Replacement, auto* Slot>
  requires std::is_same_v<decltype(Replacement), std::remove_pointer_t<decltype(Slot)>>
consteval Row hook(Group group, const char* className, const char* selector) {
  return {group, className, selector, [](Class cls, SEL message) {
            MSHookMessageEx(cls, message, reinterpret_cast<IMP>(Replacement), reinterpret_cast<IMP*>(Slot));
          }};
}

template <class Self>
constexpr const char* encodingOf(void (*)(Self*, SEL)) {
  return "v@:";
}
template <class Self, class Argument>
constexpr const char* encodingOf(void (*)(Self*, SEL, Argument*)) {
  return "v@:@";
}

/// Adds a method. Its type encoding follows from the function's type.
template <auto* Function>
consteval Row add(Group group, const char* className, const char* selector) {
  return {group, className, selector, [](Class cls, SEL message) {
            class_addMethod(cls, message, reinterpret_cast<IMP>(Function), encodingOf(Function));
          }};
}

using enum Group;

// In the order of installation.
constexpr Row table[] = {
    hook<menu::isDownloadingIcon, &menu::platformIsDownloadingIcon>(both, "SBDownloadingIcon", "isDownloadingIcon"),
    hook<menu::uninstalledByUser, &menu::platformUninstalledByUser>(both, "SBDownloadingIcon", "uninstalledByUser"),

    hook<menu::launchWithSettings, &menu::platformLaunchWithSettings>(
        oldOnly, "SBIcon", "launchFromLocation:context:activationSettings:actions:"),
    hook<menu::launch, &menu::platformLaunch>(newOnly, "SBIcon", "launchFromLocation:context:"),
    hook<menu::addTouchedIconView, &menu::platformAddTouchedIconView>(both, menuHost, "_addTouchedIconView:"),
    hook<menu::touchMoved, &menu::platformTouchMoved>(both, menuHost, "icon:touchMoved:"),

    add<menu::showAlertView>(both, menuHost, "showAlertView"),

    hook<menu::shouldActivateForceTouchItem, &menu::platformShouldActivateForceTouchItem>(
        oldOnly, "SBIconController",
        "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:"),
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

    hook<menu::shouldActivateItem, &menu::platformShouldActivateItem>(
        newOnly, "SBHIconManager", "iconView:shouldActivateApplicationShortcutItem:atIndex:"),
    hook<menu::shortcutItemsForIconView, &menu::platformShortcutItemsForIconView>(
        newOnly, "SBHIconManager", "iconView:applicationShortcutItemsWithProposedItems:"),
    hook<menu::coverSheetWillAppear, &menu::platformCoverSheetWillAppear>(newOnly, "CSCoverSheetViewController",
                                                                          "viewWillAppear:"),
    hook<menu::powerDownViewWillAnimateIn, &menu::platformPowerDownViewWillAnimateIn>(
        newOnly, "SBPowerDownViewController", "powerDownViewWillAnimateIn:"),
};

}  // namespace

void installHookTable() {
  const Group other = Generation::isNew() ? oldOnly : newOnly;
  for (const Row& row : table) {
    if (row.group == other) continue;
    const char* className = row.className == menuHost ? Generation::current().menuHost : row.className;
    row.install(objc_getClass(className), sel_registerName(row.selector));
  }
}

}  // namespace loader
