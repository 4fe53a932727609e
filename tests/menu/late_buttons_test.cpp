// A button has its turn once its sheet or alert has left the screen. Whatever happens in between, it finds what it
// needs.
#include <algorithm>

#include "tests/support/home.hpp"

namespace {

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

class LateButtons : public test::Generations {
 protected:
  void SetUp() override {
    home.options().clock = 1709820309;  // 2024-03-07 14:05:09
    home.options().timeZone = "UTC";
    home.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}});
    home.setBadge(app, 4);
    sim::writeFile(home.container(app) / "Documents/letter", "first");
    sim::writeFile(home.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  }
  // The screen locks, and with it goes the window, before the button has its turn.
  void tapAndLock(const std::string& title) {
    home->tapLate(title).lock().advance(test::dismissal);
    home->unlock().advance(1);
  }
  // Another application's menu, while the last dialog still goes.
  void openNextMenu() {
    home->animations(false);
    home.openMenu(other);
  }
  // Everything else that was shown goes, too.
  void expectNothingLeft() {
    home->lock().unlock().advance(1);
    EXPECT_TRUE(home.screen().windows.empty());
  }
  std::string badge(const std::string& id = app) { return home.icon(id).badge; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, LateButtons, test::bothGenerations, test::generationName);

TEST_P(LateButtons, OfTheMenuDoWhatTheyDo) {
  home.openMenu();
  for (const auto& entry : home.buttons()) {
    SCOPED_TRACE(entry);
    if (!home.showsAlert()) home.openMenu();
    if (!home.hasButton(entry)) continue;  // the badge goes on the way
    tapAndLock(entry);
    expectNothingLeft();
  }
}

TEST_P(LateButtons, OfEveryAlertAndSheetDoWhatTheyDo) {
  home->touch(app);
  const std::vector<std::pair<std::string, std::vector<std::string>>> all{
      {"setBadges", {"Apply", "Cancel"}},
      {"clearCaches", {"YES", "Cancel"}},
      {"clearCachesSucces", {"OK"}},
      {"backUpDataSucces", {"OK"}},
      {"restoreData", {"2020-01-01 00:00:00", "Cancel"}},
      {"deleteBackUp", {"2020-01-01 00:00:00", "Cancel"}},
      {"resetAppData", {"YES", "Cancel"}},
      {"muteNotifications", {"For 1 Hour", "Unmute", "Forever", "Cancel"}},
  };
  for (const auto& [selector, buttons] : all)
    for (const auto& button : buttons) {
      SCOPED_TRACE(selector + ": " + button);
      home->perform(selector);
      if (!home.hasButton(button)) {
        home->lock().unlock();
        continue;
      }
      tapAndLock(button);
      expectNothingLeft();
    }
}

TEST_P(LateButtons, OfTheBadgesAlertApplyWhatWasTyped) {
  home->touch(app).perform("setBadges");
  home->type("5");
  tapAndLock("Apply");
  EXPECT_EQ(badge(), "5");
  expectNothingLeft();
}

TEST_P(LateButtons, OfTheBadgesAlertApplyTheirOwnText) {
  home->touch(app).perform("setBadges");
  home->type("5").tapLate("Apply");
  home->perform("setBadges");
  home->type("6").advance(test::dismissal);
  EXPECT_EQ(badge(), "5");
}

TEST_P(LateButtons, OfTheMuteSheetMuteTheirOwnApplication) {
  home->touch(app).perform("muteNotifications");
  home->tapLate("Forever").touch(other).lock().advance(test::dismissal);
  const auto list = sim::readFile(home.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"));
  EXPECT_NE(list->find("<string>" + app + "</string>"), std::string::npos) << *list;
}

TEST_P(LateButtons, OfTheRenamingDialogStoreWhatWasTyped) {
  home.openRenameDialog();
  home->type("Mine");
  tapAndLock("Apply");
  EXPECT_EQ(home.storedName(app), "Mine");
  EXPECT_EQ(home.icon(app).label, "Mine");
  expectNothingLeft();
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveTheNextDialogAlone) {
  for (const std::string button : {"Apply", "Cancel"}) {
    SCOPED_TRACE(button);
    home.openRenameDialog(app);
    home->type("First").tapLate(button);
    openNextMenu();
    home->tap("Rename App").advance(0.26);
    ASSERT_EQ(home.alert().message, "Notes");
    home->type("Second").advance(test::dismissal).animations(true);
    EXPECT_EQ(home.storedName(app), button == "Apply" ? std::optional<std::string>("First") : std::nullopt);
    ASSERT_TRUE(home.showsAlert());
    EXPECT_EQ(home.alert().title, "Rename App");
    EXPECT_EQ(home.alert().textFields.at(0).text, "Second");
    EXPECT_EQ(home.screen().windows.size(), 1U);
    home->tap("Apply");
    EXPECT_EQ(home.storedName(other), "Second");
    EXPECT_TRUE(home.screen().windows.empty());
    home.storeFromOutside(app, "none");
    home->advance(1);
    std::filesystem::remove(home.settingsFile());
  }
}

// The next renamer exists from the tap on the menu's entry on, a quarter of a second before its dialog.
TEST_P(LateButtons, OfTheRenamingDialogLeaveTheNextRenamerAlone) {
  home.openRenameDialog(app);
  home->type("First").tapLate("Apply").advance(0.1);
  openNextMenu();
  home->tap("Rename App").advance(0.2);
  EXPECT_EQ(home.storedName(app), "First");
  EXPECT_FALSE(home.showsAlert());
  home->advance(1);
  ASSERT_TRUE(home.showsAlert());
  home->type("Second").tap("Apply");
  EXPECT_EQ(home.storedName(other), "Second");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveAMenuAlone) {
  for (const std::string button : {"Apply", "Cancel"}) {
    SCOPED_TRACE(button);
    home.openRenameDialog(app);
    home->tapLate(button);
    home.openMenu(other);
    home->advance(test::dismissal);
    ASSERT_TRUE(home.showsAlert());
    EXPECT_EQ(home.alert().title, "Notes");
    home->tap("Cancel").advance(1);
  }
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveTheOverlayAlone) {
  home.openRenameDialog(app);
  home->tapLate("Apply").perform("showLoadingView").advance(test::dismissal);
  ASSERT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.screen().windows[0].background, "0,0.2");
}

TEST_P(LateButtons, OfTheMenuKeepTheirIcon) {
  home.openMenu();
  home.uninstall(app);
  home->tap("Rename App").advance(1);
  EXPECT_EQ(home.alert().title, "Rename App");
}

TEST_P(LateButtons, LeaveNothingBehind) {
  const auto round = [&] {
    home->touch(app).perform("setBadges");
    tapAndLock("Apply");
    home.openRenameDialog(app);
    tapAndLock("Apply");
    home.openRenameDialog(app);
    tapAndLock("Cancel");
    home->perform("clearCaches");
    tapAndLock("YES");
    home->lock().unlock().advance(1);
  };
  round();
  const auto before = home->live();
  for (int time = 0; time < 5; ++time) round();
  EXPECT_EQ(home->live(), before);
  EXPECT_EQ(home.live("UIAlertController"), 0);
  EXPECT_EQ(home.live("RenameIcon"), 0);
}
