// Sheets and alerts take their time to come and to go: what may happen meanwhile.
#include "tests/support/home.hpp"

namespace {

const std::string app = "com.example.test";
const std::string other = "com.example.notes";
constexpr double guard = 0.8;  // keeps a second menu away, from the end of the first one's presentation on
constexpr double moment = 0.001;

class DialogTimes : public test::Generations {
 protected:
  void SetUp() override {
    home.install({});
    home.options().interposed = {"UIAlertController viewDidAppear:", "UIAlertController viewDidDisappear:"};
  }
  long appeared() { return home->interposedCalls().at("UIAlertController viewDidAppear:"); }
  long disappeared() { return home->interposedCalls().at("UIAlertController viewDidDisappear:"); }
  bool copied() { return home->pasteboard().has_value(); }
  // A menu opens at once and stays away until its guard is over.
  void expectTheNextMenuAfter(double seconds) {
    home->advance(seconds - moment);
    home.openMenu(other);
    EXPECT_FALSE(home.showsAlert());
    home->advance(2 * moment);
    home.openMenu(other);
    EXPECT_TRUE(home.showsAlert());
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, DialogTimes, test::bothGenerations, test::generationName);

TEST_P(DialogTimes, ASheetIsSeenAtOnceAndHasComeLater) {
  home.openMenu();
  EXPECT_TRUE(home.showsAlert());
  home->advance(test::presentation - moment);
  EXPECT_EQ(appeared(), 0);
  home->advance(moment);
  EXPECT_EQ(appeared(), 1);
}

TEST_P(DialogTimes, AButtonHasItsTurnWhenItsSheetHasGone) {
  home.openMenu();
  home->advance(1).tapLate("Copy BundleID");
  home->advance(test::dismissal - moment);
  EXPECT_EQ(disappeared(), 0);
  EXPECT_FALSE(copied());
  home->advance(moment);
  EXPECT_EQ(disappeared(), 1);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ATapWaitsUntilItsSheetHasComeAndThenUntilItHasGone) {
  home.openMenu();
  const double before = home->now();
  home->tap("Copy BundleID");
  EXPECT_NEAR(home->now() - before, test::presentation + test::dismissal, moment / 10);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ATapOnAButtonThatThereIsNotTakesNoTime) {
  home.openMenu();
  const double before = home->now();
  EXPECT_THROW(home->tap("Nothing of that name"), sim::BadInput);
  EXPECT_EQ(home->now(), before);
}

TEST_P(DialogTimes, ASheetThatGoesTakesNoMoreTouches) {
  home.openMenu();
  home->tapLate("Copy BundleID");
  EXPECT_THROW(home->tap("Cancel"), sim::BadInput);
  EXPECT_FALSE(copied());
  home->advance(test::dismissal);
  EXPECT_TRUE(copied());
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(DialogTimes, LockingWhileTheMenuComesTakesItAwayAndItsGuardRunsOut) {
  home.openMenu();
  home->advance(0.2).lock();
  EXPECT_TRUE(home.screen().windows.empty());
  home->unlock();
  expectTheNextMenuAfter(test::presentation - 0.2 + guard);
}

TEST_P(DialogTimes, ThePowerDownSliderWhileTheMenuComesTakesItAway) {
  home.openMenu();
  home->advance(0.2).powerDown();
  EXPECT_TRUE(home.screen().windows.empty());
  home->home();
  expectTheNextMenuAfter(test::presentation - 0.2 + guard);
}

TEST_P(DialogTimes, ASecondMenuDoesNotComeWhileTheFirstDoes) {
  home.openMenu();
  home->advance(0.2).touch(other).perform("showAlertView");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.screen().windows.size(), 1U);
}

TEST_P(DialogTimes, ASecondMenuWhileTheFirstGoesMakesWayWhenTheButtonHasItsTurn) {
  home.openMenu();
  home->advance(2).tapLate("Copy BundleID").touch(other).perform("showAlertView");
  EXPECT_EQ(home.alert().title, "Notes");
  home->advance(test::dismissal);
  EXPECT_EQ(home->pasteboard().value().text, other) << "what was touched last";
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(DialogTimes, TheScreenGoingOffBeforeTheButtonsTurnLosesNothing) {
  home.openMenu();
  home->tapLate("Copy BundleID").screenOff();
  EXPECT_TRUE(home.screen().windows.empty());
  home->advance(test::dismissal);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ARespringBeforeTheButtonsTurnLosesTheTap) {
  home.openMenu();
  home->tapLate("Copy BundleID").respring();
  home->advance(1);
  EXPECT_FALSE(copied());
  EXPECT_TRUE(home.screen().windows.empty());
  home.openMenu();
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(DialogTimes, ARespringWhileTheMenuComesLeavesNoGuard) {
  home.openMenu();
  home->advance(0.2).respring();
  home.openMenu(other);
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(DialogTimes, TheDialogThatAButtonOpensComesAfterItsSheetHasGone) {
  home.openMenu();
  home->advance(1).tapLate("Set Badges");
  EXPECT_EQ(home.alert().title, "Test App");
  home->advance(test::dismissal);
  EXPECT_EQ(home.alert().title, "Set Custom Badge");
  home->advance(test::presentation - moment);
  EXPECT_EQ(appeared(), 1);
  home->advance(moment);
  EXPECT_EQ(appeared(), 2);
}

TEST_P(DialogTimes, WithoutAnimationsNothingTakesTime) {
  home->animations(false);
  const double before = home->now();
  home.openMenu();
  home->tap("Copy BundleID");
  EXPECT_EQ(home->now(), before);
  EXPECT_TRUE(copied());
  EXPECT_EQ(disappeared(), 1);
}
