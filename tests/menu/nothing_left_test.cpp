// Menus and alerts that come and go leave nothing behind.
#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";

/// An entry of the menu and the buttons that lead from it back to the home screen.
struct Way {
  std::string entry;
  std::vector<std::string> buttons;
};

class NothingLeft : public test::Generations {
 protected:
  void SetUp() override {
    phone.options().clock = 1709820309;  // 2024-03-07 14:05:09
    phone.options().timeZone = "UTC";
    phone.install({});
    sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/" + app) / "2020-01-01.00_00_00", "");
    phone.settings({"showSize=false"});
  }

  // The badge's and the label's dialogs change what the screen shows; all others end as they began.
  const std::vector<Way> ways = {
      {"Cancel", {}},
      {"Open in Filza [Data]", {}},
      {"Rename App", {"Cancel"}},
      {"Rename App", {"Apply"}},
      {"Set Badges", {"Cancel"}},
      {"Set Badges", {"Apply"}},
      {"Clear Caches", {"Cancel"}},
      {"Clear Caches", {"YES", "OK"}},
      {"Restore Data", {"Cancel"}},
      {"Delete Backup Data", {"Cancel"}},
      {"Remove All User Data", {"Cancel"}},
      {"Copy BundleID", {}},
      {"Copy URL Schemes", {"OK"}},
      {"Mute Notification", {"Cancel"}},
      {"Mute Notification", {"For 1 Hour"}},
  };

  void go(const Way& way) {
    phone.openMenu();
    phone.tap(way.entry);
    phone.advance(0.3);  // the renaming dialog comes a little later
    for (const auto& button : way.buttons) phone.tap(button);
    phone.home().advance(1);  // from the file manager, for one
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, NothingLeft, test::bothGenerations, test::generationName);

TEST_P(NothingLeft, AfterThreeHundredCycles) {
  for (const Way& way : ways) go(way);
  const auto before = phone.live();
  for (int cycle = 0; cycle < 300; ++cycle) go(ways[static_cast<std::size_t>(cycle) % ways.size()]);
  EXPECT_EQ(phone.live(), before);
  EXPECT_EQ(phone.live("UIAlertController"), 0);
  EXPECT_EQ(phone.live("UIAlertAction"), 0);
  EXPECT_EQ(phone.live("UITextField"), 0);
  EXPECT_EQ(phone.live("RenameIcon"), 0);
}

TEST_P(NothingLeft, AfterMenusAndAlertsThatNobodyAnswers) {
  const auto abandon = [&](const Way& way) {
    phone.openMenu();
    phone.tap(way.entry);
    phone.advance(0.3);
    phone.lock();
    phone.unlock();
    phone.home().advance(1);
  };
  // What the last of them leaves in its slots is the same each time.
  for (const Way& way : ways) abandon(way);
  const auto before = phone.live();
  for (int round = 0; round < 3; ++round)
    for (const Way& way : ways) abandon(way);
  EXPECT_EQ(phone.live(), before);
  EXPECT_LE(phone.live("UIAlertController"), 1);
  EXPECT_LE(phone.live("RenameIcon"), 1);
}

TEST_P(NothingLeft, AfterAlertsThatReplaceOneAnother) {
  phone.touch(app);
  const auto replaceAll = [&] {
    for (const auto* alert : {"clearCaches", "resetAppData", "setBadges", "restoreData", "deleteBackUp",
                              "muteNotifications", "showLoadingView", "backUpDataSucces"})
      phone.perform(alert);
    phone.advance(1);
  };
  replaceAll();
  const auto before = phone.live();
  for (int round = 0; round < 30; ++round) replaceAll();
  EXPECT_EQ(phone.live(), before);
  EXPECT_EQ(phone.live("UIAlertController"), 1);
  EXPECT_EQ(phone.screen().windows.size(), 1U);
}
