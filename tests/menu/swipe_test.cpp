// The vertical swipe that opens the menu, gate by gate.
#include "tests/support/home.hpp"

namespace {
const std::string app = "com.example.notes";
class Swipe : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Swipe, test::bothGenerations, test::generationName);

TEST_P(Swipe, UpOpensTheMenuByDefault) {
  home.swipeUp(app);
  EXPECT_TRUE(home.hasButton("Cancel"));
}

TEST_P(Swipe, MustTravelFartherThanTheThreshold) {
  home.settings({"slideValue=5.0"});
  home.swipeUp(app, 0, -5.0);
  EXPECT_FALSE(home.showsAlert());
  home.swipeUp(app, 0, -5.5);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, ThresholdIsKeptInSinglePrecision) {
  // 0.1 in single precision is a little more than in double precision.
  home.settings({"slideValue=0.1"});
  home.swipeUp(app, 0, -0.1000000005);
  EXPECT_FALSE(home.showsAlert());
  home.swipeUp(app, 0, -0.125);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, DefaultThresholdIsOnePoint) {
  home.swipeUp(app, 0, -1.0);
  EXPECT_FALSE(home.showsAlert());
  home.swipeUp(app, 0, -2.0);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, SidewaysMovementOfAnyAmountDoesNotCount) {
  home.swipeUp(app, 0.5, -20);
  home.swipeUp(app, -0.0625, -20);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, ThresholdIsForOneSampleNotForTheDrag) {
  home.settings({"slideValue=10"});
  home->swipe(app, {{0, -4}, {0, -4}, {0, -4}, {0, -4}});
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, SeveralSamplesOpenOneMenu) {
  home->swipe(app, {{0, -4}, {0, -9}, {0, -9}});
  EXPECT_EQ(home.screen().windows.size(), 1U);
}

TEST_P(Swipe, DownOpensTheMenuWithDirectionOne) {
  home.settings({"direction=1", "slideValue=5"});
  home.swipeUp(app, 0, -20);
  home.swipeUp(app, 0, 5);
  EXPECT_FALSE(home.showsAlert());
  home.swipeUp(app, 0.5, 6);
  EXPECT_FALSE(home.showsAlert());
  home.swipeUp(app, 0, 6);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, DownDoesNotOpenTheMenuWithDirectionZero) {
  home.swipeUp(app, 0, 20);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, AnyOtherDirectionTurnsItOff) {
  for (const auto* direction : {"direction=2", "direction=-1"}) {
    home.settings({direction});
    home.swipeUp(app, 0, -20);
    home.swipeUp(app, 0, 20);
    EXPECT_FALSE(home.showsAlert()) << direction;
  }
}

TEST_P(Swipe, DoesNothingWhileTheQuickActionEntryIsUsed) {
  home.settings({"useForce=true"});
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, DoesNothingWhenSwitchedOff) {
  home.settings({"enabled=false"});
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, DoesNothingWhileEditing) {
  home->edit(true);
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
  home->edit(false);
  home.swipeUp(app);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, WorksOnlyWhileEditingWithUseEditing) {
  home.settings({"useEditing=true"});
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
  home->edit(true);
  home.swipeUp(app);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Swipe, OnSomethingThatIsNoApplicationOpensNothing) {
  home.swipeUp(app, 0, -0.5);  // leaves an application recorded
  home.swipeUp("Garden Diary");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, OpensTheMenuOfTheTouchedIcon) {
  home.swipeUp(app);
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(Swipe, ThePlatformGetsTheTouchWhileAnIconIsDownloading) {
  home->startDownload("com.example.coming").askDownload("com.example.coming");
  home->swipe(app, {{0, -0.5}, {3, 1}});
  EXPECT_EQ(home->ask("platform").at("touchesMoved"), 2);
}

TEST_P(Swipe, TouchesAreNotNoticedWhileSwitchedOff) {
  home.settings({"enabled=false"});
  home->touch(app);
  home.settings({"enabled=true"});
  home->perform("showAlertView");
  EXPECT_FALSE(home.showsAlert());
}

// What the platform's method changes on its way shows what comes before it, and what after.
TEST_P(Swipe, ATouchIsNoticedBeforeThePlatformGetsItAndASwipeAfter) {
  const nlohmann::json arrive{{"verb", "post"}, {"name", "com.morvanel.sprigdial.preferencechanged"}};
  const std::string touched = menuHost() + " _addTouchedIconView:";
  const std::string moved = menuHost() + " icon:touchMoved:";
  home.options().interposed = {touched, moved};
  home->home();
  home.device().setSettings({"enabled=false"});
  home->interpose(touched, {{"do", "perform"}, {"requests", {arrive}}});
  home->touch(app);
  home.settings({"enabled=true"});
  home->perform("showAlertView");
  EXPECT_TRUE(home.showsAlert());
  home->tap("Cancel").advance(1);
  home.device().setSettings({"enabled=false"});
  home->interpose(moved, {{"do", "perform"}, {"requests", {arrive}}});
  home.swipeUp(app);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Swipe, ThePlatformAlwaysGetsTheTouch) {
  for (const auto& pair : {"enabled=true", "enabled=false", "useForce=true"}) {
    home.settings({pair});
    home->swipe(app, {{0, -0.5}, {3, 1}});
  }
  EXPECT_EQ(home->ask("platform").at("touchesMoved"), 6);
}
