// The sheet that mutes an application.
#include "tests/mute/muting.hpp"

namespace {

using test::app;
using test::everyPlace;
using test::forever;
using test::Json;
using test::listOf;
using test::nowhere;
using test::other;
using test::record;

const std::vector<std::string> timedTitles{"For 15 Minutes", "For 1 Hour",  "For 2 Hour", "For 3 Hour",
                                           "For 5 Hour",     "For 8 Hours", "For 1 Day"};

class MuteSheet : public test::Muting {
 protected:
  static std::vector<std::string> titlesWith(const std::string& last) {
    auto titles = timedTitles;
    titles.insert(titles.end(), {last, "Cancel"});
    return titles;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, MuteSheet, test::bothGenerations, test::generationName);

TEST_P(MuteSheet, OpensFromTheMenuForItsApplication) {
  home.openMenu();
  home->tap("Mute Notification");
  const auto sheet = home.alert();
  EXPECT_EQ(sheet.style, "action sheet");
  EXPECT_EQ(sheet.title, "Mute Notifications");
  EXPECT_EQ(sheet.message, app);
  EXPECT_EQ(sheet.titles(), titlesWith("Forever"));
  EXPECT_TRUE(sheet.textFields.empty());
  for (const auto& button : sheet.buttons) EXPECT_EQ(button.style, button.title == "Cancel" ? "cancel" : "default");
}

TEST_P(MuteSheet, OffersAMutedApplicationToUnmute) {
  store({forever(app), record(other, later)});
  for (const std::string& id : {app, other}) {
    openSheet(id);
    EXPECT_EQ(home.alert().message, id);
    EXPECT_EQ(home.buttons(), titlesWith("Unmute"));
    for (const auto& button : home.alert().buttons)
      EXPECT_EQ(button.style, button.title == "Cancel" ? "cancel" : "default");
  }
  openSheet("com.example.chess");
  EXPECT_EQ(home.buttons(), titlesWith("Forever"));
}

TEST_P(MuteSheet, FillsAWindowJustBelowTheSystemsAlerts) {
  openSheet();
  const auto windows = home.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, (sim::Frame{0, 0, 375, 667}));
  EXPECT_FALSE(windows[0].alert->popover);
}

TEST_P(MuteSheet, TakesTheWindowOfWhatIsShown) {
  home->touch(app);
  home->perform("setBadges");
  ASSERT_EQ(home.alert().title, "Set Custom Badge");
  openSheet();
  EXPECT_EQ(home.alert().title, "Mute Notifications");
  openSheet(other);
  EXPECT_EQ(home.alert().message, other);
  EXPECT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.live("UIWindow"), 2);  // the home screen's own is the other one
}

TEST_P(MuteSheet, IsGoneAfterAnyButton) {
  auto titles = timedTitles;
  titles.insert(titles.end(), {"Unmute", "Forever", "Cancel"});
  for (const auto& title : titles) {
    mute(title);
    EXPECT_TRUE(home.screen().windows.empty()) << title;
    EXPECT_EQ(home.live("UIWindow"), 1) << title;
  }
}

TEST_P(MuteSheet, CancelChangesNothing) {
  store({forever(app)});
  home->screen();
  std::filesystem::remove(file());
  mute("Cancel");
  mute("Cancel", other);
  EXPECT_FALSE(std::filesystem::exists(file()));
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(reached(other), everyPlace);
}

TEST_P(MuteSheet, AChoiceIsForTheApplicationThatItWasOpenedFor) {
  openSheet();
  home->touch(other);
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MuteSheet, CountsTheTimeUpToTheWholeSecondOfTheEnd) {
  store({record(app, 1'700'000'010.75)});
  home->advance(9.5);  // …009.75
  EXPECT_TRUE(sheetOffers("Unmute"));
  home->advance(0.25);  // …010
  EXPECT_TRUE(sheetOffers("Forever"));
}

TEST_P(MuteSheet, TellsMutedByAnyRecordOfTheApplication) {
  store({record(app, start - 100), record(other, later), record(app, later)});
  EXPECT_TRUE(sheetOffers("Unmute"));
  store({record(app, start - 100), forever(other), record(app, start - 1)});
  home->respring();
  EXPECT_TRUE(sheetOffers("Forever"));
}

TEST_P(MuteSheet, KeepsItsButtonsWhenTheRecordIsPruned) {
  store({record(app, start + 10)});
  openSheet();
  home->advance(60);
  ASSERT_EQ(reached(), everyPlace);
  ASSERT_EQ(list(), listOf(Json::array()));
  EXPECT_EQ(home.buttons(), titlesWith("Unmute"));
  choose("For 15 Minutes");
  EXPECT_EQ(list(), listOf({record(app, start + 960)}));
}

TEST_P(MuteSheet, KeepsToWhatItSawWhenTheMutingRunsOut) {
  store({record(app, start + 10), forever(other)});
  openSheet();
  home->advance(60);
  choose("For 15 Minutes");
  EXPECT_EQ(list(), listOf({forever(other), record(app, start + 960)}));
}

TEST_P(MuteSheet, NothingIsToldAfterAChoice) {
  for (const auto* title : {"For 15 Minutes", "Unmute", "Forever"}) {
    mute(title);
    home->advance(1);
    EXPECT_FALSE(home.showsAlert()) << title;
  }
}

TEST_P(MuteSheet, OpensWithTheMasterSwitchOff) {
  home->touch(app);
  home.settings({"enabled=false"});
  home->perform("muteNotifications");
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MuteSheet, WithoutACurrentApplicationDoesNotOpen) {
  home->perform("muteNotifications");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(MuteSheet, OnATabletIsAPopoverOverTheWholeWindow) {
  home.options().tablet = true;
  openSheet();
  const auto popover = home.alert().popover;
  ASSERT_TRUE(popover);
  EXPECT_TRUE(popover->sourceIsRootView);
  EXPECT_EQ(popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(popover->arrowDirections, 0U);
  EXPECT_EQ(home.screen().windows[0].frame, (sim::Frame{0, 0, 768, 1024}));
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

namespace {
class MuteSheetOld : public test::OldGeneration {};
}  // namespace

TEST_F(MuteSheetOld, KnowsPopoversFromTheirFirstVersionOn) {
  home.options().coreVersion = 1240.1;
  home.options().tablet = true;
  home.install({});
  home->touch(app);
  home->perform("muteNotifications");
  EXPECT_TRUE(home.alert().popover->sourceIsRootView);
}
