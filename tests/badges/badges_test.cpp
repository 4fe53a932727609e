// Clearing and setting badges.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.test";
class Badges : public test::Generations {
 protected:
  void SetUp() override {
    phone.install({});
    phone.setBadge(app, 4);
    phone.touch(app);
  }
  std::string badge() { return phone.screen().icon(app)->badge; }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Badges, test::bothGenerations, test::generationName);

TEST_P(Badges, AreClearedAtOnce) {
  phone.openMenu();
  EXPECT_EQ(badge(), "4");
  phone.tap("Clear Badges");
  EXPECT_EQ(badge(), "");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Badges, AreAskedForWithANumberPad) {
  phone.openMenu();
  phone.tap("Set Badges");
  const auto alert = phone.alert();
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
  phone.settings({"useText=true"});
  phone.perform("setBadges");
  EXPECT_EQ(phone.alert().textFields[0].keyboard, "default");
  EXPECT_EQ(phone.alert().textFields[0].clearButton, "always");
  EXPECT_EQ(phone.alert().textFields[0].returnKey, "done");
  phone.type("new é");
  phone.tap("Apply");
  EXPECT_EQ(badge(), "new é");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Badges, AreHandedOverAsTyped) {
  phone.perform("setBadges");
  phone.type("007");
  phone.tap("Apply");
  EXPECT_EQ(badge(), "007");
}

TEST_P(Badges, AnEmptyTextIsAValueNotAClearing) {
  phone.logMessages(true);
  phone.perform("setBadges");
  phone.tap("Apply");
  int set = 0;
  int cleared = 0;
  for (const auto& call : phone.calls()) {
    set += call.selector == "setBadgeValue:forBundleID:" ? 1 : 0;
    cleared += call.selector == "setBadge:" ? 1 : 0;
  }
  EXPECT_EQ(set, 1);
  EXPECT_EQ(cleared, 0);
}

TEST_P(Badges, AnEmptyTextIsStoredAsOne) {
  phone.perform("setBadges");
  phone.tap("Apply");
  const auto states = sim::readFile(phone.path("/var/mobile/Library/SpringBoard/applicationState.plist"));
  EXPECT_NE(states->find("<string></string>"), std::string::npos) << *states;
}

TEST_P(Badges, CancelChangesNothing) {
  phone.perform("setBadges");
  phone.type("9");
  phone.tap("Cancel");
  EXPECT_EQ(badge(), "4");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Badges, ClearingWithoutOneOrWithoutAnIconIsSilent) {
  phone.perform("clearBadges");
  phone.perform("clearBadges");
  EXPECT_EQ(badge(), "");
  test::Phone fresh(GetParam());
  fresh.perform("clearBadges");
  EXPECT_FALSE(fresh.showsAlert());
}

TEST_P(Badges, GoToTheApplicationThatIsCurrentWhenApplied) {
  phone.perform("setBadges");
  phone.type("5");
  phone.touchInSpite("com.example.notes");
  EXPECT_EQ(phone.alert().message, "Test App");
  phone.tap("Apply");
  EXPECT_EQ(badge(), "4");
  EXPECT_EQ(phone.screen().icon("com.example.notes")->badge, "5");
}

TEST_P(Badges, AnUnknownApplicationsAreStillHandedOver) {
  std::filesystem::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.perform("setBadges");
  EXPECT_EQ(phone.alert().message, "(null)");
  phone.logMessages(true);
  phone.type("5");
  phone.tap("Apply");
  const auto calls = phone.calls();
  EXPECT_TRUE(std::any_of(calls.begin(), calls.end(),
                          [](const auto& call) { return call.selector == "setBadgeValue:forBundleID:"; }));
  phone.perform("clearBadges");
}

TEST_P(Badges, ChangeNoFileWhenCleared) {
  phone.screen();  // starting up makes a file of its own
  auto before = test::filesBelow(phone.device().root() / "var");
  phone.perform("clearBadges");
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
}

// The menu tells the badge of the time it was built.
TEST_P(Badges, ThatAreClearedLeaveTheMenuWithoutTheEntry) {
  phone.openMenu();
  phone.tap("Clear Badges");
  phone.advance(1);
  phone.openMenu();
  EXPECT_FALSE(phone.hasButton("Clear Badges"));
  EXPECT_TRUE(phone.hasButton("Set Badges"));
}
