// A finger touches what is on top, and nothing else.
#include "tests/homescreen/views.hpp"

namespace {

using test::refusal;
using test::viewsOf;

const std::string app = "com.example.test";
const std::string notes = "com.example.notes";
const std::string caffe = "com.example.caffe";  // in the first row

class Touches : public test::Generations {
 protected:
  // Every gesture on the icon is refused for that reason, and changes nothing: not even the add-on's target.
  void expectCovered(const std::string& icon, const std::string& by) {
    const std::string reason = "\"" + icon + "\" is covered by " + by;
    home.screen();  // events are told once
    const nlohmann::json before = home.screen();
    const std::vector<std::function<void()>> gestures{[&] { home->touch(icon); }, [&] { home.swipeUp(icon); },
                                                      [&] { home->forceTouch(icon); }, [&] { home->launch(icon); }};
    for (const auto& gesture : gestures) EXPECT_EQ(refusal(gesture), reason);
    EXPECT_EQ(nlohmann::json(home.screen()), before);
    EXPECT_EQ(home->ask("platform").at("touchesMoved"), moved);
    EXPECT_TRUE(home->launches().size() <= 1);
  }
  int moved = 0;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Touches, test::bothGenerations, test::generationName);

// What covers

TEST_P(Touches, ASheetCoversTheIcons) {
  home.openMenu(notes);
  moved = 1;
  expectCovered("com.example.weather", "the sheet \"Notes\"");
}

TEST_P(Touches, AnAlertCoversTheIcons) {
  home->touch(notes).perform("setBadges");
  expectCovered(notes, "the alert \"Set Custom Badge\"");
}

TEST_P(Touches, AnOpenApplicationCoversTheIconsUntilTheHomeButtonIsPressed) {
  home->launch("com.example.weather");
  expectCovered(notes, "the application com.example.weather");
  home->home();
  home.openMenu(notes);
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(Touches, TheLockScreenCoversTheIconsUntilItIsUnlocked) {
  home->lock().screenOn();
  expectCovered(notes, "the lock screen");
  home->unlock();
  home.openMenu(notes);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Touches, NothingCanBeTouchedWhileTheScreenIsOff) {
  home->screenOff();
  EXPECT_EQ(refusal([&] { home->touch(notes); }), "\"com.example.notes\" cannot be touched: the screen is off");
  EXPECT_EQ(refusal([&] { test::touchAt(home, 100, 100); }), "Nothing can be touched: the screen is off");
  EXPECT_EQ(refusal([&] { test::drag(home, 100, 100, 0, -20); }), "Nothing can be touched: the screen is off");
  home->screenOn();
  home->touch(notes);
}

TEST_P(Touches, TheOverlayCoversTheIcons) {
  home->perform("showLoadingView");
  expectCovered(notes, "the overlay");
}

TEST_P(Touches, ABannerCoversTheFirstRow) {
  home->notify(notes, "hello");
  expectCovered(caffe, "a banner");
  home.swipeUp(notes);
  EXPECT_TRUE(home.showsAlert()) << "the second row is free";
}

TEST_P(Touches, TheQuickActionListCoversTheIcons) {
  home->forceTouch(notes);
  expectCovered("com.example.weather", "the quick-action list");
}

TEST_P(Touches, ThePowerSliderCoversTheIcons) {
  home->powerDown();
  expectCovered(notes, "the power slider");
  home->home();
  home->touch(notes);
}

TEST_P(Touches, TheSwitcherCoversTheIcons) {
  home->ask("switcher");
  expectCovered(notes, "the application switcher");
  home->home();
  home->touch(notes);
}

TEST_P(Touches, TheStatusBarTakesNoTouches) {
  test::touchAt(home, 180, 5);
  EXPECT_EQ(home.screen().frontmost, "");
}

// Dialogs over one another

TEST_P(Touches, AButtonBelowSomethingElseIsCovered) {
  home->touch(notes).powerDown().perform("showAlertView");
  ASSERT_TRUE(home.showsAlert());
  EXPECT_EQ(refusal([&] { home->tap("Cancel"); }), "\"Cancel\" is covered by the power slider");
  EXPECT_TRUE(home.showsAlert());
  home->home().tap("Cancel");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Touches, AQuickActionBelowThePowerSliderIsCovered) {
  home->forceTouch(notes);
  const auto entry = home.screen().quickActions->entries.at(0).title;
  home->perform(isOld() ? "orderFront" : "powerDownViewWillAnimateIn:",
                isOld() ? "SBPowerDownController" : "SBPowerDownViewController");
  EXPECT_EQ(refusal([&] { home->choose(entry); }), "\"" + entry + "\" is covered by the power slider");
  EXPECT_TRUE(home.screen().quickActions);
}

// Points

TEST_P(Touches, ATapAtAnIconOpensIt) {
  test::touch(home, home.icon(notes).frame);
  EXPECT_EQ(home.screen().frontmost, notes);
  ASSERT_EQ(home->launches().size(), 1U);
  EXPECT_EQ(home->launches()[0].id, notes);
}

TEST_P(Touches, ATapBetweenTheIconsDoesNothing) {
  const auto frame = home.icon(notes).frame;
  const nlohmann::json before = home.screen();
  test::touchAt(home, test::right(frame) + 1, frame.y);
  EXPECT_EQ(nlohmann::json(home.screen()), before);
}

TEST_P(Touches, ATapJustWithinTheIconsEdgeIsOne) {
  const auto frame = home.icon(notes).frame;
  test::touchAt(home, test::right(frame) - 0.5, test::bottom(frame) - 0.5);
  EXPECT_EQ(home.screen().frontmost, notes);
}

TEST_P(Touches, ATapAtAButtonPressesIt) {
  home.openMenu(notes);
  home->advance(test::presentation);
  for (const auto& button : viewsOf(home.screen(), "_UIAlertControllerActionView"))
    if (test::caption(button) == "Copy BundleID") {
      test::touch(home, button.frame);
      break;
    }
  home->advance(test::dismissal);
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home->pasteboard().value().text, notes);
}

TEST_P(Touches, ATapBesideAnAlertDoesNothing) {
  home->touch(notes).perform("setBadges").advance(test::presentation);
  test::touchAt(home, 5, 100);
  home->advance(test::dismissal);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Touches, ATapBesideASheetCancelsIt) {
  home.openMenu(notes);
  test::touchAt(home, 2, 100);
  home->advance(1);
  EXPECT_TRUE(home.showsAlert()) << "it was still coming";
  test::touchAt(home, 2, 100);
  home->advance(test::dismissal);
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Touches, ADragFromAPointOnAnIconOpensItsMenu) {
  const auto frame = home.icon(notes).frame;
  test::drag(home, frame.x + 30, frame.y + 40, 0, -20);
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(Touches, ADragOnWhatCoversAnIconDoesNotReachIt) {
  const auto frame = home.icon(notes).frame;
  home->launch("com.example.weather");
  test::drag(home, frame.x + 30, frame.y + 40, 0, -20);
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home->ask("platform").at("touchesMoved"), 0);
}

TEST_P(Touches, APointOutsideTheScreenIsRefused) {
  EXPECT_EQ(refusal([&] { test::touchAt(home, 375, 10); }), "The point lies outside the screen");
  EXPECT_EQ(refusal([&] { test::touchAt(home, -1, 10); }), "The point lies outside the screen");
}

TEST_P(Touches, ATapOutsideTheQuickActionListClosesIt) {
  home->forceTouch(notes);
  const auto row = viewsOf(home.screen(), "SBUIActionView").at(0).frame;
  test::touchAt(home, row.x + 5, row.y - 60);
  EXPECT_FALSE(home.screen().quickActions);
  home->touch(notes);
}

TEST_P(Touches, ATapAtAQuickActionChoosesIt) {
  home->forceTouch(notes);
  test::touch(home, viewsOf(home.screen(), "SBUIActionView").at(0).frame);
  const auto seen = home.screen();
  EXPECT_FALSE(seen.quickActions);
  EXPECT_EQ(seen.frontmost, notes);
}

TEST_P(Touches, IconsDoNotOpenWhileTheyAreEdited) {
  home->edit(true);
  test::touch(home, home.icon(notes).frame);
  EXPECT_EQ(home.screen().frontmost, "");
}

// Hit-testing

TEST_P(Touches, AMovedIconIsTouchedWhereItIs) {
  const auto before = home.icon(notes).frame;
  home.uninstall("com.example.caffe");
  const auto after = home.icon(notes).frame;
  ASSERT_NE(before, after);
  home.openMenu(notes);
  EXPECT_EQ(home.alert().title, "Notes");
}
