// A button has its turn once its sheet or alert has left the screen. Whatever happens in between, it finds what it
// needs.
#include <algorithm>

#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";
const std::string other = "com.example.notes";

class LateButtons : public test::Generations {
 protected:
  void SetUp() override {
    phone.options().clock = 1709820309;  // 2024-03-07 14:05:09
    phone.options().timeZone = "UTC";
    phone.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}});
    phone.setBadge(app, 4);
    sim::writeFile(phone.container(app) / "Documents/letter", "first");
    sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
  }
  // The screen locks, and with it goes the window, before the button has its turn.
  void tapAndLock(const std::string& title) {
    phone.tapLate(title).lock().advance(test::dismissal);
    phone.unlock().advance(1);
  }
  // Another application's menu, while the last dialog still goes.
  void openNextMenu() {
    phone.animations(false);
    phone.openMenuInSpite(other);
  }
  // Everything else that was shown goes, too.
  void expectNothingLeft() {
    phone.lock().unlock().home().advance(1);
    EXPECT_TRUE(phone.screen().windows.empty());
  }
  std::string badge(const std::string& id = app) { return phone.icon(id).badge; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, LateButtons, test::bothGenerations, test::generationName);

TEST_P(LateButtons, OfTheMenuDoWhatTheyDo) {
  phone.openMenu();
  for (const auto& entry : phone.buttons()) {
    SCOPED_TRACE(entry);
    if (!phone.showsAlert()) phone.openMenu();
    if (!phone.hasButton(entry)) continue;  // the badge goes on the way
    tapAndLock(entry);
    expectNothingLeft();
  }
}

TEST_P(LateButtons, OfEveryAlertAndSheetDoWhatTheyDo) {
  phone.touch(app);
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
      phone.perform(selector);
      if (!phone.hasButton(button)) {
        phone.lock().unlock();
        continue;
      }
      tapAndLock(button);
      expectNothingLeft();
    }
}

TEST_P(LateButtons, OfTheBadgesAlertApplyWhatWasTyped) {
  phone.touch(app).perform("setBadges");
  phone.type("5");
  tapAndLock("Apply");
  EXPECT_EQ(badge(), "5");
  expectNothingLeft();
}

TEST_P(LateButtons, OfTheBadgesAlertApplyTheirOwnText) {
  phone.touch(app).perform("setBadges");
  phone.type("5").tapLate("Apply");
  phone.perform("setBadges");
  phone.type("6").advance(test::dismissal);
  EXPECT_EQ(badge(), "5");
}

TEST_P(LateButtons, OfTheMuteSheetMuteTheirOwnApplication) {
  phone.touch(app).perform("muteNotifications");
  phone.tapLate("Forever");
  phone.touchInSpite(other);
  phone.lock().advance(test::dismissal);
  const auto list = sim::readFile(phone.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"));
  EXPECT_NE(list->find("<string>" + app + "</string>"), std::string::npos) << *list;
}

TEST_P(LateButtons, OfTheRenamingDialogStoreWhatWasTyped) {
  phone.openRenameDialog();
  phone.type("Mine");
  tapAndLock("Apply");
  EXPECT_EQ(phone.storedName(app), "Mine");
  EXPECT_EQ(phone.icon(app).label, "Mine");
  expectNothingLeft();
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveTheNextDialogAlone) {
  for (const std::string button : {"Apply", "Cancel"}) {
    SCOPED_TRACE(button);
    phone.openRenameDialog(app);
    phone.type("First").tapLate(button);
    openNextMenu();
    phone.tap("Rename App").advance(0.26);
    ASSERT_EQ(phone.alert().message, "Notes");
    phone.type("Second").advance(test::dismissal).animations(true);
    EXPECT_EQ(phone.storedName(app), button == "Apply" ? std::optional<std::string>("First") : std::nullopt);
    ASSERT_TRUE(phone.showsAlert());
    EXPECT_EQ(phone.alert().title, "Rename App");
    EXPECT_EQ(phone.alert().textFields.at(0).text, "Second");
    EXPECT_EQ(phone.screen().windows.size(), 1U);
    phone.tap("Apply");
    EXPECT_EQ(phone.storedName(other), "Second");
    EXPECT_TRUE(phone.screen().windows.empty());
    phone.storeFromOutside(app, "none");
    phone.advance(1);
    std::filesystem::remove(phone.settingsFile());
  }
}

// The next renamer exists from the tap on the menu's entry on, a quarter of a second before its dialog.
TEST_P(LateButtons, OfTheRenamingDialogLeaveTheNextRenamerAlone) {
  phone.openRenameDialog(app);
  phone.type("First").tapLate("Apply").advance(0.1);
  openNextMenu();
  phone.tap("Rename App").advance(0.2);
  EXPECT_EQ(phone.storedName(app), "First");
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(1);
  ASSERT_TRUE(phone.showsAlert());
  phone.type("Second").tap("Apply");
  EXPECT_EQ(phone.storedName(other), "Second");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveAMenuAlone) {
  for (const std::string button : {"Apply", "Cancel"}) {
    SCOPED_TRACE(button);
    phone.openRenameDialog(app);
    phone.tapLate(button);
    phone.openMenuInSpite(other);
    phone.advance(test::dismissal);
    ASSERT_TRUE(phone.showsAlert());
    EXPECT_EQ(phone.alert().title, "Notes");
    phone.tap("Cancel").advance(1);
  }
}

TEST_P(LateButtons, OfTheRenamingDialogLeaveTheOverlayAlone) {
  phone.openRenameDialog(app);
  phone.tapLate("Apply").perform("showLoadingView").advance(test::dismissal);
  ASSERT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.screen().windows[0].background, (sim::Color{0, 0, 0, 0.2}));
}

TEST_P(LateButtons, OfTheMenuKeepTheirIcon) {
  phone.openMenu();
  phone.uninstall(app);
  phone.tap("Rename App").advance(1);
  EXPECT_EQ(phone.alert().title, "Rename App");
}

TEST_P(LateButtons, LeaveNothingBehind) {
  const auto round = [&] {
    phone.touch(app).perform("setBadges");
    tapAndLock("Apply");
    phone.openRenameDialog(app);
    tapAndLock("Apply");
    phone.openRenameDialog(app);
    tapAndLock("Cancel");
    phone.perform("clearCaches");
    tapAndLock("YES");
    phone.lock().unlock().advance(1);
  };
  round();
  const auto before = phone.live();
  for (int time = 0; time < 5; ++time) round();
  EXPECT_EQ(phone.live(), before);
  EXPECT_EQ(phone.live("UIAlertController"), 0);
  EXPECT_EQ(phone.live("RenameIcon"), 0);
}
