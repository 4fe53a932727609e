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
  phone.openMenu();
  phone.tap("Mute Notification");
  const auto sheet = phone.alert();
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
    EXPECT_EQ(phone.alert().message, id);
    EXPECT_EQ(phone.buttons(), titlesWith("Unmute"));
    for (const auto& button : phone.alert().buttons)
      EXPECT_EQ(button.style, button.title == "Cancel" ? "cancel" : "default");
  }
  openSheet("com.example.chess");
  EXPECT_EQ(phone.buttons(), titlesWith("Forever"));
}

TEST_P(MuteSheet, FillsAWindowJustBelowTheSystemsAlerts) {
  openSheet();
  const auto windows = phone.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, bounds());
  EXPECT_FALSE(windows[0].alert->popover);
}

TEST_P(MuteSheet, TakesTheWindowOfWhatIsShown) {
  phone.touch(app);
  phone.perform("setBadges");
  ASSERT_EQ(phone.alert().title, "Set Custom Badge");
  openSheet();
  EXPECT_EQ(phone.alert().title, "Mute Notifications");
  openSheet(other);
  EXPECT_EQ(phone.alert().message, other);
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.live("UIWindow"), 1);
}

TEST_P(MuteSheet, IsGoneAfterAnyButton) {
  auto titles = timedTitles;
  titles.insert(titles.end(), {"Unmute", "Forever", "Cancel"});
  for (const auto& title : titles) {
    mute(title);
    EXPECT_TRUE(phone.screen().windows.empty()) << title;
    EXPECT_EQ(phone.live("UIWindow"), 0) << title;
  }
}

TEST_P(MuteSheet, CancelChangesNothing) {
  store({forever(app)});
  phone.screen();
  std::filesystem::remove(file());
  mute("Cancel");
  mute("Cancel", other);
  EXPECT_FALSE(std::filesystem::exists(file()));
  EXPECT_EQ(reached(), nowhere);
  EXPECT_EQ(reached(other), everyPlace);
}

TEST_P(MuteSheet, AChoiceIsForTheApplicationThatItWasOpenedFor) {
  openSheet();
  phone.touchInSpite(other);
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MuteSheet, CountsTheTimeUpToTheWholeSecondOfTheEnd) {
  store({record(app, 1'700'000'010.75)});
  phone.advance(9.5);  // …009.75
  EXPECT_TRUE(sheetOffers("Unmute"));
  phone.advance(0.25);  // …010
  EXPECT_TRUE(sheetOffers("Forever"));
}

TEST_P(MuteSheet, TellsMutedByAnyRecordOfTheApplication) {
  store({record(app, start - 100), record(other, later), record(app, later)});
  EXPECT_TRUE(sheetOffers("Unmute"));
  store({record(app, start - 100), forever(other), record(app, start - 1)});
  phone.respring();
  EXPECT_TRUE(sheetOffers("Forever"));
}

TEST_P(MuteSheet, KeepsItsButtonsWhenTheRecordIsPruned) {
  store({record(app, start + 10)});
  openSheet();
  phone.advance(60);
  ASSERT_EQ(reached(), everyPlace);
  ASSERT_EQ(list(), listOf(Json::array()));
  EXPECT_EQ(phone.buttons(), titlesWith("Unmute"));
  choose("For 15 Minutes");
  EXPECT_EQ(list(), listOf({record(app, start + 960)}));
}

TEST_P(MuteSheet, KeepsToWhatItSawWhenTheMutingRunsOut) {
  store({record(app, start + 10), forever(other)});
  openSheet();
  phone.advance(60);
  choose("For 15 Minutes");
  EXPECT_EQ(list(), listOf({forever(other), record(app, start + 960)}));
}

TEST_P(MuteSheet, NothingIsToldAfterAChoice) {
  for (const auto* title : {"For 15 Minutes", "Unmute", "Forever"}) {
    mute(title);
    phone.advance(1);
    EXPECT_FALSE(phone.showsAlert()) << title;
  }
}

TEST_P(MuteSheet, OpensWithTheMasterSwitchOff) {
  phone.touch(app);
  phone.settings({"enabled=false"});
  phone.perform("muteNotifications");
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

TEST_P(MuteSheet, WithoutACurrentApplicationDoesNotOpen) {
  phone.perform("muteNotifications");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(MuteSheet, OnATabletIsAPopoverOverTheWholeWindow) {
  phone.options().tablet = true;
  openSheet();
  const auto popover = phone.alert().popover;
  ASSERT_TRUE(popover);
  EXPECT_TRUE(popover->sourceIsRootView);
  EXPECT_EQ(popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(popover->arrowDirections, 0U);
  EXPECT_EQ(phone.screen().windows[0].frame, (sim::Frame{0, 0, 768, 1024}));
  choose("Forever");
  EXPECT_EQ(list(), listOf({forever(app)}));
}

namespace {
class MuteSheetOld : public test::OldGeneration {};
}  // namespace

TEST_F(MuteSheetOld, KnowsPopoversFromTheirFirstVersionOn) {
  phone.options().coreVersion = 1240.1;
  phone.options().tablet = true;
  phone.install({});
  phone.touch(app);
  phone.perform("muteNotifications");
  EXPECT_TRUE(phone.alert().popover->sourceIsRootView);
}
