// Clearing and setting badges.
#include "tests/support/home.hpp"

namespace {
const std::string app = "com.example.test";
class Badges : public test::Generations {
 protected:
  void SetUp() override {
    home.install({});
    home.setBadge(app, 4);
    home.swipeUp(app, 0, -0.5);
  }
  std::string badge() { return home.screen().icon(app)->badge; }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Badges, test::bothGenerations, test::generationName);

TEST_P(Badges, AreClearedAtOnce) {
  home.openMenu();
  EXPECT_EQ(badge(), "4");
  home->tap("Clear Badges");
  EXPECT_EQ(badge(), "");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Badges, AreAskedForWithANumberPad) {
  home.openMenu();
  home->tap("Set Badges");
  const auto alert = home.alert();
  EXPECT_EQ(alert.style, "alert");
  EXPECT_EQ(alert.title, "Set Custom Badge");
  EXPECT_EQ(alert.message, "Test App");
  EXPECT_EQ(alert.titles(), (std::vector<std::string>{"Apply", "Cancel"}));
  EXPECT_EQ(alert.buttons[1].style, "cancel");
  ASSERT_EQ(alert.textFields.size(), 1U);
  EXPECT_EQ(alert.textFields[0].text, "");
  EXPECT_EQ(alert.textFields[0].placeholder, "");
  EXPECT_EQ(alert.textFields[0].keyboard, "number pad");
  EXPECT_EQ(alert.textFields[0].clearButton, "never");
  EXPECT_EQ(alert.textFields[0].returnKey, "default");
}

TEST_P(Badges, MayBeAnyTextWithUseText) {
  home.settings({"useText=true"});
  home->perform("setBadges");
  EXPECT_EQ(home.alert().textFields[0].keyboard, "default");
  EXPECT_EQ(home.alert().textFields[0].clearButton, "always");
  EXPECT_EQ(home.alert().textFields[0].returnKey, "done");
  home->type("new é");
  home->tap("Apply");
  EXPECT_EQ(badge(), "new é");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Badges, AreHandedOverAsTyped) {
  home->perform("setBadges");
  home->type("007");
  home->tap("Apply");
  EXPECT_EQ(badge(), "007");
}

TEST_P(Badges, AnEmptyTextIsAValueNotAClearing) {
  home->logMessages(true);
  home->perform("setBadges");
  home->tap("Apply");
  int set = 0;
  int cleared = 0;
  for (const auto& call : home->calls()) {
    set += call.selector == "setBadgeValue:forBundleID:" ? 1 : 0;
    cleared += call.selector == "setBadge:" ? 1 : 0;
  }
  EXPECT_EQ(set, 1);
  EXPECT_EQ(cleared, 0);
}

TEST_P(Badges, AnEmptyTextIsStoredAsOne) {
  home->perform("setBadges");
  home->tap("Apply");
  const auto states = sim::readFile(home.path("/var/mobile/Library/SpringBoard/applicationState.plist"));
  EXPECT_NE(states->find("<string></string>"), std::string::npos) << *states;
}

TEST_P(Badges, CancelChangesNothing) {
  home->perform("setBadges");
  home->type("9");
  home->tap("Cancel");
  EXPECT_EQ(badge(), "4");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Badges, ClearingWithoutOneOrWithoutAnIconIsSilent) {
  home->perform("clearBadges");
  home->perform("clearBadges");
  EXPECT_EQ(badge(), "");
  test::Home fresh(GetParam());
  fresh->perform("clearBadges");
  EXPECT_FALSE(fresh.showsAlert());
}

TEST_P(Badges, GoToTheApplicationThatIsCurrentWhenApplied) {
  home->perform("setBadges");
  home->type("5");
  home.touchInSpite("com.example.notes");
  EXPECT_EQ(home.alert().message, "Test App");
  home->tap("Apply");
  EXPECT_EQ(badge(), "4");
  EXPECT_EQ(home.screen().icon("com.example.notes")->badge, "5");
}

TEST_P(Badges, AnUnknownApplicationsAreStillHandedOver) {
  std::filesystem::remove_all(home.bundle(app).parent_path());
  home->rescan();
  home->perform("setBadges");
  EXPECT_EQ(home.alert().message, "(null)");
  home->logMessages(true);
  home->type("5");
  home->tap("Apply");
  const auto calls = home->calls();
  EXPECT_TRUE(std::any_of(calls.begin(), calls.end(),
                          [](const auto& call) { return call.selector == "setBadgeValue:forBundleID:"; }));
  home->perform("clearBadges");
}

TEST_P(Badges, ChangeNoFileWhenCleared) {
  home.screen();  // starting up makes a file of its own
  auto before = test::filesBelow(home.device().root() / "var");
  home->perform("clearBadges");
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), before);
}

// The menu tells the badge of the time it was built.
TEST_P(Badges, ThatAreClearedLeaveTheMenuWithoutTheEntry) {
  home.openMenu();
  home->tap("Clear Badges");
  home->advance(1);
  home.openMenu();
  EXPECT_FALSE(home.hasButton("Clear Badges"));
  EXPECT_TRUE(home.hasButton("Set Badges"));
}
