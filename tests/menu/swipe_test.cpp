// The vertical swipe that opens the menu, gate by gate.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.notes";
class Swipe : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Swipe, test::bothGenerations, test::generationName);

TEST_P(Swipe, UpOpensTheMenuByDefault) {
  phone.swipeUp(app);
  EXPECT_TRUE(phone.hasButton("Cancel"));
}

TEST_P(Swipe, MustTravelFartherThanTheThreshold) {
  phone.settings({"slideValue=5.0"});
  phone.swipe(app, {{0, -5.0}});
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0, -5.5}});
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, ThresholdIsKeptInSinglePrecision) {
  // 0.1 in single precision is a little more than in double precision.
  phone.settings({"slideValue=0.1"});
  phone.swipe(app, {{0, -0.1000000005}});
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0, -0.125}});
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, DefaultThresholdIsOnePoint) {
  phone.swipe(app, {{0, -1.0}});
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0, -2.0}});
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, SidewaysMovementOfAnyAmountDoesNotCount) {
  phone.swipe(app, {{0.5, -20}});
  phone.swipe(app, {{-0.0625, -20}});
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, ThresholdIsForOneSampleNotForTheDrag) {
  phone.settings({"slideValue=10"});
  phone.swipe(app, {{0, -4}, {0, -4}, {0, -4}, {0, -4}});
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, SeveralSamplesOpenOneMenu) {
  phone.swipe(app, {{0, -4}, {0, -9}, {0, -9}});
  EXPECT_EQ(phone.screen().windows.size(), 1U);
}

TEST_P(Swipe, DownOpensTheMenuWithDirectionOne) {
  phone.settings({"direction=1", "slideValue=5"});
  phone.swipe(app, {{0, -20}});
  phone.swipe(app, {{0, 5}});
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0.5, 6}});
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0, 6}});
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, DownDoesNotOpenTheMenuWithDirectionZero) {
  phone.swipe(app, {{0, 20}});
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, AnyOtherDirectionTurnsItOff) {
  for (const auto* direction : {"direction=2", "direction=-1"}) {
    phone.settings({direction});
    phone.swipe(app, {{0, -20}});
    phone.swipe(app, {{0, 20}});
    EXPECT_FALSE(phone.showsAlert()) << direction;
  }
}

TEST_P(Swipe, DoesNothingWhileTheQuickActionEntryIsUsed) {
  phone.settings({"useForce=true"});
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, DoesNothingWhenSwitchedOff) {
  phone.settings({"enabled=false"});
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, DoesNothingWhileEditing) {
  phone.edit(true);
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
  phone.edit(false);
  phone.swipeUp(app);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, WorksOnlyWhileEditingWithUseEditing) {
  phone.settings({"useEditing=true"});
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
  phone.edit(true);
  phone.swipeUp(app);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Swipe, OnSomethingThatIsNoApplicationOpensNothing) {
  phone.touch(app);  // leaves an application recorded
  phone.swipeUp("Garden Diary");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, OpensTheMenuOfTheTouchedIcon) {
  phone.swipeUp(app);
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(Swipe, ThePlatformGetsTheTouchWhileAnIconIsDownloading) {
  phone.startDownload("com.example.coming").askDownload("com.example.coming");
  phone.swipe(app, {{0, -0.5}, {3, 1}});
  EXPECT_EQ(phone.ask("platform").at("touchesMoved"), 2);
}

TEST_P(Swipe, TouchesAreNotNoticedWhileSwitchedOff) {
  phone.settings({"enabled=false"});
  phone.touch(app);
  phone.settings({"enabled=true"});
  phone.perform("showAlertView");
  EXPECT_FALSE(phone.showsAlert());
}

// What the platform's method changes on its way shows what comes before it, and what after.
TEST_P(Swipe, ATouchIsNoticedBeforeThePlatformGetsItAndASwipeAfter) {
  const nlohmann::json arrive{{"verb", "post"}, {"members", {{"name", "com.morvanel.sprigdial.preferencechanged"}}}};
  const std::string touched = menuHost() + " _addTouchedIconView:";
  const std::string moved = menuHost() + " icon:touchMoved:";
  phone.options().interposed = {touched, moved};
  phone.home();
  phone.device().setSettings({"enabled=false"});
  phone.interpose(touched, {{"do", "perform"}, {"requests", {arrive}}});
  phone.touch(app);
  phone.settings({"enabled=true"});
  phone.perform("showAlertView");
  EXPECT_TRUE(phone.showsAlert());
  phone.tap("Cancel").advance(1);
  phone.device().setSettings({"enabled=false"});
  phone.interpose(moved, {{"do", "perform"}, {"requests", {arrive}}});
  phone.swipeUp(app);
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Swipe, ThePlatformAlwaysGetsTheTouch) {
  for (const auto& pair : {"enabled=true", "enabled=false", "useForce=true"}) {
    phone.settings({pair});
    phone.swipe(app, {{0, -0.5}, {3, 1}});
  }
  EXPECT_EQ(phone.ask("platform").at("touchesMoved"), 6);
}
