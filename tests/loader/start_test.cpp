// What happens when the library is mapped: the hook table, the observers, the mute list, the threshold.
#include <sys/stat.h>

#include "tests/support/home.hpp"

namespace {

class Start : public test::Generations {
 protected:
  // "kind class selector encoding" of what was hooked and added while the library was mapped.
  std::vector<std::string> table() {
    std::vector<std::string> rows;
    for (const auto& call : home->calls())
      if (call.kind == "hook" || call.kind == "add")
        rows.push_back(call.kind + " " + call.className + " " + call.selector +
                       (call.kind == "add" ? " " + call.encoding : ""));
    return rows;
  }
};
using StartOld = test::OldGeneration;

const std::string muteList = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist";

const std::vector<std::string> oldTable{
    "hook SBDownloadingIcon isDownloadingIcon",
    "hook SBDownloadingIcon uninstalledByUser",
    "hook SBIcon launchFromLocation:context:activationSettings:actions:",
    "hook SBIconController _addTouchedIconView:",
    "hook SBIconController icon:touchMoved:",
    "add SBIconController showAlertView v@:",
    "hook SBIconController "
    "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:",
    "hook SBUIAppIconForceTouchControllerDataProvider applicationShortcutItems",
    "hook SBUIAppIconForceTouchController state",
    "hook SBUIAction initWithTitle:subtitle:image:badgeView:handler:",
    "hook SBDashBoardViewController setInScreenOffMode:forAutoUnlock:",
    "hook SBDashBoardViewController setInScreenOffMode:forAutoUnlock:fromUnlockSource:",
    "hook SBPowerDownController orderFront",
};

const std::vector<std::string> newTable{
    "hook SBDownloadingIcon isDownloadingIcon",
    "hook SBDownloadingIcon uninstalledByUser",
    "hook SBIcon launchFromLocation:context:",
    "hook SBHIconManager _addTouchedIconView:",
    "hook SBHIconManager icon:touchMoved:",
    "add SBHIconManager showAlertView v@:",
    "hook SBHIconManager iconView:shouldActivateApplicationShortcutItem:atIndex:",
    "hook SBHIconManager iconView:applicationShortcutItemsWithProposedItems:",
    "hook CSCoverSheetViewController viewWillAppear:",
    "hook SBPowerDownViewController powerDownViewWillAnimateIn:",
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Start, test::bothGenerations, test::generationName);

TEST_P(Start, InstallsTheWholeTableInOrder) { EXPECT_EQ(table(), isOld() ? oldTable : newTable); }

TEST_P(Start, ObservesFourDarwinNotificationsInOrder) {
  std::vector<std::string> names;
  for (const auto& observer : home->darwinObservers()) {
    names.push_back(observer.name);
    EXPECT_TRUE(observer.observer.is_null());
    EXPECT_TRUE(observer.object.is_null());
    EXPECT_EQ(observer.suspension, 2);
  }
  const std::vector<std::string> expected{
      "com.morvanel.sprigdial.isdownload", "com.morvanel.sprigdial.renamelable", "com.morvanel.sprigdial.iconlable",
      "com.morvanel.sprigdial.preferencechanged"};
  EXPECT_EQ(names, expected);
}

TEST_P(Start, MakesTheMuteListReadableByAll) {
  home->screen();
  struct stat info {};
  ASSERT_EQ(stat(home.path(muteList).c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777, 0644U);
  EXPECT_NE(sim::readFile(home.path(muteList))->find("<dict>\n\t<key>entries</key>\n\t<array/>\n</dict>"),
            std::string::npos);
}

TEST_P(Start, LeavesAnExistingMuteListAlone) {
  const std::string content = "anything at all";
  sim::writeFile(home.path(muteList), content);
  home->screen();
  EXPECT_EQ(sim::readFile(home.path(muteList)), content);
}

TEST_P(Start, WorksWhereTheMuteListCannotBeMade) {
  std::filesystem::remove_all(home.path("/var/mobile/Library/Preferences"));
  home.openMenu("com.example.notes");
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Start, WithoutTheLibraryTheHomeScreenWorksToo) {
  home.options().withLibrary = false;
  home.swipeUp("com.example.notes");
  EXPECT_FALSE(home.showsAlert());
  EXPECT_TRUE(home->calls().empty());
}

TEST_F(StartOld, JustBelowTheThresholdIsTheOldGroup) {
  home.options().coreVersion = 1652.19;
  EXPECT_EQ(home->calls().size(), oldTable.size() + 4);
}

// The version alone decides, not which classes there are.
TEST_F(StartOld, AtTheThresholdIsTheNewGroup) {
  home.options().coreVersion = 1652.2;
  for (const auto& call : home->calls()) EXPECT_NE(call.className, "SBIconController") << call.selector;
}

TEST_P(Start, OtherHostGainsNothing) {
  const std::string other = isOld() ? "SBHIconManager" : "SBIconController";
  for (const auto& call : home->calls()) EXPECT_NE(call.className, other);
}
