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
    phone.screen();  // events are told once
    const nlohmann::json before = phone.screen();
    const std::vector<std::function<void()>> gestures{[&] { phone.touch(icon); }, [&] { phone.swipeUp(icon); },
                                                      [&] { phone.forceTouch(icon); }, [&] { phone.launch(icon); }};
    for (const auto& gesture : gestures) EXPECT_EQ(refusal(gesture), reason);
    EXPECT_EQ(nlohmann::json(phone.screen()), before);
    EXPECT_EQ(phone.ask("platform").at("touchesMoved"), moved);
    EXPECT_TRUE(phone.launches().size() <= 1);
  }
  int moved = 0;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Touches, test::bothGenerations, test::generationName);

// What covers

TEST_P(Touches, ASheetCoversTheIcons) {
  phone.openMenu(notes);
  moved = 3;
  expectCovered("com.example.weather", "the sheet \"Notes\"");
}

TEST_P(Touches, AnAlertCoversTheIcons) {
  phone.touch(notes).perform("setBadges");
  expectCovered(notes, "the alert \"Set Custom Badge\"");
}

TEST_P(Touches, AnOpenApplicationCoversTheIconsUntilTheHomeButtonIsPressed) {
  phone.launch("com.example.weather");
  expectCovered(notes, "the application com.example.weather");
  phone.home();
  phone.openMenu(notes);
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(Touches, TheLockScreenCoversTheIconsUntilItIsUnlocked) {
  phone.lock().screenOn();
  expectCovered(notes, "the lock screen");
  phone.unlock();
  phone.openMenu(notes);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Touches, NothingCanBeTouchedWhileTheScreenIsOff) {
  phone.screenOff();
  EXPECT_EQ(refusal([&] { phone.touch(notes); }), "\"com.example.notes\" cannot be touched: the screen is off");
  EXPECT_EQ(refusal([&] { test::touchAt(phone, 100, 100); }), "Nothing can be touched: the screen is off");
  EXPECT_EQ(refusal([&] { test::drag(phone, 100, 100, 0, -20); }), "Nothing can be touched: the screen is off");
  phone.screenOn();
  phone.touch(notes);
}

TEST_P(Touches, TheOverlayCoversTheIcons) {
  phone.perform("showLoadingView");
  expectCovered(notes, "the overlay");
}

TEST_P(Touches, ABannerCoversTheFirstRow) {
  phone.notify(notes, "hello");
  expectCovered(caffe, "a banner");
  phone.swipeUp(notes);
  EXPECT_TRUE(phone.showsAlert()) << "the second row is free";
}

TEST_P(Touches, TheQuickActionListCoversTheIcons) {
  phone.forceTouch(notes);
  expectCovered("com.example.weather", "the quick-action list");
}

TEST_P(Touches, ThePowerSliderCoversTheIcons) {
  phone.powerDown();
  expectCovered(notes, "the power slider");
  phone.home();
  phone.touch(notes);
}

TEST_P(Touches, TheSwitcherCoversTheIcons) {
  phone.ask("switcher");
  expectCovered(notes, "the application switcher");
  phone.home();
  phone.touch(notes);
}

TEST_P(Touches, TheStatusBarTakesNoTouches) {
  test::touchAt(phone, 180, 5);
  EXPECT_EQ(phone.screen().frontmost, "");
}

// Dialogs over one another

TEST_P(Touches, AButtonBelowSomethingElseIsCovered) {
  phone.touch(notes).powerDown().perform("showAlertView");
  ASSERT_TRUE(phone.showsAlert());
  EXPECT_EQ(refusal([&] { phone.tap("Cancel"); }), "\"Cancel\" is covered by the power slider");
  EXPECT_TRUE(phone.showsAlert());
  phone.home().tap("Cancel");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Touches, AQuickActionBelowThePowerSliderIsCovered) {
  phone.forceTouch(notes);
  const auto entry = phone.screen().quickActions->entries.at(0).title;
  phone.perform(isOld() ? "orderFront" : "powerDownViewWillAnimateIn:",
                isOld() ? "SBPowerDownController" : "SBPowerDownViewController");
  EXPECT_EQ(refusal([&] { phone.choose(entry); }), "\"" + entry + "\" is covered by the power slider");
  EXPECT_TRUE(phone.screen().quickActions);
}

// Points

TEST_P(Touches, ATapAtAnIconOpensIt) {
  test::touch(phone, phone.icon(notes).frame);
  EXPECT_EQ(phone.screen().frontmost, notes);
  ASSERT_EQ(phone.launches().size(), 1U);
  EXPECT_EQ(phone.launches()[0].id, notes);
}

TEST_P(Touches, ATapBetweenTheIconsDoesNothing) {
  const auto frame = phone.icon(notes).frame;
  const nlohmann::json before = phone.screen();
  test::touchAt(phone, test::right(frame) + 1, frame.y);
  EXPECT_EQ(nlohmann::json(phone.screen()), before);
}

TEST_P(Touches, ATapJustWithinTheIconsEdgeIsOne) {
  const auto frame = phone.icon(notes).frame;
  test::touchAt(phone, test::right(frame) - 0.5, test::bottom(frame) - 0.5);
  EXPECT_EQ(phone.screen().frontmost, notes);
}

TEST_P(Touches, ATapAtAButtonPressesIt) {
  phone.openMenu(notes);
  phone.advance(test::presentation);
  for (const auto& button : viewsOf(phone.screen(), "_UIAlertControllerActionView"))
    if (test::caption(button) == "Copy BundleID") {
      test::touch(phone, button.frame);
      break;
    }
  phone.advance(test::dismissal);
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.pasteboard().value().text, notes);
}

TEST_P(Touches, ATapBesideAnAlertDoesNothing) {
  phone.touch(notes).perform("setBadges").advance(test::presentation);
  test::touchAt(phone, 5, 100);
  phone.advance(test::dismissal);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Touches, ATapBesideASheetCancelsIt) {
  phone.openMenu(notes);
  test::touchAt(phone, 2, 100);
  phone.advance(1);
  EXPECT_TRUE(phone.showsAlert()) << "it was still coming";
  test::touchAt(phone, 2, 100);
  phone.advance(test::dismissal);
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Touches, ADragFromAPointOnAnIconOpensItsMenu) {
  const auto frame = phone.icon(notes).frame;
  test::drag(phone, frame.x + 30, frame.y + 40, 0, -20);
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(Touches, ADragOnWhatCoversAnIconDoesNotReachIt) {
  const auto frame = phone.icon(notes).frame;
  phone.launch("com.example.weather");
  test::drag(phone, frame.x + 30, frame.y + 40, 0, -20);
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.ask("platform").at("touchesMoved"), 0);
}

TEST_P(Touches, APointOutsideTheScreenIsRefused) {
  EXPECT_EQ(refusal([&] { test::touchAt(phone, 375, 10); }), "The point lies outside the screen");
  EXPECT_EQ(refusal([&] { test::touchAt(phone, -1, 10); }), "The point lies outside the screen");
}

TEST_P(Touches, ATapOutsideTheQuickActionListClosesIt) {
  phone.forceTouch(notes);
  const auto row = viewsOf(phone.screen(), "SBUIActionView").at(0).frame;
  test::touchAt(phone, row.x + 5, row.y - 60);
  EXPECT_FALSE(phone.screen().quickActions);
  phone.touch(notes);
}

TEST_P(Touches, ATapAtAQuickActionChoosesIt) {
  phone.forceTouch(notes);
  test::touch(phone, viewsOf(phone.screen(), "SBUIActionView").at(0).frame);
  const auto seen = phone.screen();
  EXPECT_FALSE(seen.quickActions);
  EXPECT_EQ(seen.frontmost, notes);
}

TEST_P(Touches, IconsDoNotOpenWhileTheyAreEdited) {
  phone.edit(true);
  test::touch(phone, phone.icon(notes).frame);
  EXPECT_EQ(phone.screen().frontmost, "");
}

// Hit-testing

TEST_P(Touches, AMovedIconIsTouchedWhereItIs) {
  const auto before = phone.icon(notes).frame;
  phone.uninstall("com.example.caffe");
  const auto after = phone.icon(notes).frame;
  ASSERT_NE(before, after);
  phone.openMenu(notes);
  EXPECT_EQ(phone.alert().title, "Notes");
}
