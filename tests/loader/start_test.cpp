// What happens when the library is mapped: the hook table, the observers, the mute list, the threshold.
#include <sys/stat.h>

#include "tests/support/phone.hpp"

namespace {

class Start : public test::Generations {
 protected:
  // "kind class selector encoding" of what was hooked and added on the platform's classes.
  std::vector<std::string> table() {
    std::vector<std::string> rows;
    for (const auto& call : phone.calls())
      if ((call.kind == "hook" || call.kind == "add") && call.className != "RenameIcon")
        rows.push_back(call.kind + " " + call.className + " " + call.selector +
                       (call.kind == "add" ? " " + call.encoding : ""));
    return rows;
  }
};

const std::string muteList = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist";

const std::vector<std::string> oldTable{
    "hook SBDownloadingIcon isDownloadingIcon",
    "hook SBDownloadingIcon uninstalledByUser",
    "hook SpringBoard applicationDidFinishLaunching:",
    "add SpringBoard launchMuteMenu: v@:@",
    "hook SBNCScreenController turnOnScreenForNotificationRequest:",
    "hook SBNCSoundController playSoundForNotificationRequest:",
    "hook SBIconView layoutSubviews",
    "add SBIconView recievedIconLablelUpdate v@:",
    "hook SBIcon launchFromLocation:context:activationSettings:actions:",
    "hook SBIconController _addTouchedIconView:",
    "hook SBIconController icon:touchMoved:",
    "add SBIconController showAlertView v@:",
    "add SBIconController clearBadges v@:",
    "add SBIconController setBadges v@:",
    "add SBIconController clearCaches v@:",
    "add SBIconController clearCachesSucces v@:",
    "add SBIconController deleteBackUp v@:",
    "add SBIconController deleteBackUpSucces v@:",
    "add SBIconController backUpData v@:",
    "add SBIconController backUpDataSucces v@:",
    "add SBIconController restoreData v@:",
    "add SBIconController restoreDataSucces v@:",
    "add SBIconController resetAppData v@:",
    "add SBIconController resetAppDataSucces v@:",
    "add SBIconController openInFilzaApp v@:",
    "add SBIconController openInFilzaData v@:",
    "add SBIconController muteNotifications v@:",
    "add SBIconController openApps v@:",
    "add SBIconController showLoadingView v@:",
    "hook SBIconController appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:",
    "hook SBApplicationIcon displayName",
    "hook SBApplicationIcon displayNameForLocation:",
    "hook SBApplication displayName",
    "hook SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems",
    "hook SBUIAppIconForceTouchController state",
    "hook SBUIAction initWithTitle:subtitle:image:badgeView:handler:",
    "hook SBDashBoardViewController setInScreenOffMode:forAutoUnlock:",
    "hook SBDashBoardViewController setInScreenOffMode:forAutoUnlock:fromUnlockSource:",
    "hook SBPowerDownController orderFront",
    "hook SBDashBoardNotificationDispatcher postNotificationRequest:forCoalescedNotification:",
    "hook SBNotificationBannerDestination _postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:",
    "hook SBIconView initWithContentType:",
};

const std::vector<std::string> newTable{
    "hook SBDownloadingIcon isDownloadingIcon",
    "hook SBDownloadingIcon uninstalledByUser",
    "hook SpringBoard applicationDidFinishLaunching:",
    "add SpringBoard launchMuteMenu: v@:@",
    "hook SBNCScreenController turnOnScreenForNotificationRequest:",
    "hook SBNCSoundController playSoundForNotificationRequest:",
    "hook SBIconView layoutSubviews",
    "add SBIconView recievedIconLablelUpdate v@:",
    "hook SBIcon launchFromLocation:context:",
    "hook SBHIconManager _addTouchedIconView:",
    "hook SBHIconManager icon:touchMoved:",
    "add SBHIconManager showAlertView v@:",
    "add SBHIconManager clearBadges v@:",
    "add SBHIconManager setBadges v@:",
    "add SBHIconManager clearCaches v@:",
    "add SBHIconManager clearCachesSucces v@:",
    "add SBHIconManager deleteBackUp v@:",
    "add SBHIconManager deleteBackUpSucces v@:",
    "add SBHIconManager backUpData v@:",
    "add SBHIconManager backUpDataSucces v@:",
    "add SBHIconManager restoreData v@:",
    "add SBHIconManager restoreDataSucces v@:",
    "add SBHIconManager resetAppData v@:",
    "add SBHIconManager resetAppDataSucces v@:",
    "add SBHIconManager openInFilzaApp v@:",
    "add SBHIconManager openInFilzaData v@:",
    "add SBHIconManager muteNotifications v@:",
    "add SBHIconManager openApps v@:",
    "add SBHIconManager showLoadingView v@:",
    "hook SBHIconManager iconView:shouldActivateApplicationShortcutItem:atIndex:",
    "hook SBHIconManager iconView:applicationShortcutItemsWithProposedItems:",
    "hook SBApplicationIcon displayName",
    "hook SBApplicationIcon displayNameForLocation:",
    "hook SBApplication displayName",
    "hook CSCoverSheetViewController viewWillAppear:",
    "hook SBPowerDownViewController powerDownViewWillAnimateIn:",
    "hook CSNotificationDispatcher postNotificationRequest:",
    "hook SBNotificationBannerDestination postNotificationRequest:",
    "hook SBIconView initWithFrame:",
    "hook SBIconView initWithConfigurationOptions:",
    "hook SBIconView initWithConfigurationOptions:listLayoutProvider:",
    "add SBIconView _sprigDial_registerNotification v@:",
    "add SBIconView renameIconLablelUpdate v@:",
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Start, test::bothGenerations, test::generationName);

TEST_P(Start, InstallsTheWholeTableInOrder) { EXPECT_EQ(table(), isOld() ? oldTable : newTable); }

TEST_P(Start, ObservesFourDarwinNotificationsInOrder) {
  std::vector<std::string> names;
  for (const auto& observer : phone.darwinObservers()) {
    names.push_back(observer.name);
    EXPECT_TRUE(observer.observer.is_null());
    EXPECT_TRUE(observer.object.is_null());
    EXPECT_EQ(observer.suspension, 2);
  }
  const std::vector<std::string> expected{"com.morvanel.sprigdial.isdownload", "com.morvanel.sprigdial.renamelable",
                                          "com.morvanel.sprigdial.iconlable",
                                          "com.morvanel.sprigdial.preferencechanged"};
  EXPECT_EQ(names, expected);
}

TEST_P(Start, MakesTheMuteListReadableByAll) {
  phone.screen();
  struct stat info {};
  ASSERT_EQ(stat(phone.path(muteList).c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777, 0644U);
  EXPECT_NE(sim::readFile(phone.path(muteList))->find("<dict>\n\t<key>entries</key>\n\t<array/>\n</dict>"),
            std::string::npos);
}

TEST_P(Start, LeavesAnExistingMuteListAlone) {
  const std::string content = "anything at all";
  sim::writeFile(phone.path(muteList), content);
  phone.screen();
  EXPECT_EQ(sim::readFile(phone.path(muteList)), content);
}

TEST_P(Start, WorksWhereTheMuteListCannotBeMade) {
  std::filesystem::remove_all(phone.path("/var/mobile/Library/Preferences"));
  phone.openMenu("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Start, WithoutTheLibraryTheHomeScreenWorksToo) {
  phone.removeAddOn();
  phone.swipeUp("com.example.notes");
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_TRUE(phone.calls().empty());
}

// The version alone decides, not which classes there are.
TEST_P(Start, TheThresholdIsExact) {
  phone.options().coreVersion = isOld() ? 1652.19 : 1652.2;
  EXPECT_EQ(table(), isOld() ? oldTable : newTable);
}

TEST_P(Start, OtherHostGainsNothing) {
  const std::string other = isOld() ? "SBHIconManager" : "SBIconController";
  for (const auto& call : phone.calls()) EXPECT_NE(call.className, other);
}
