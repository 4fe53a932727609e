// Sheets and alerts take their time to come and to go: what may happen meanwhile.
#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";
const std::string other = "com.example.notes";
constexpr double guard = 0.8;  // keeps a second menu away, from the end of the first one's presentation on
constexpr double moment = 0.001;

class DialogTimes : public test::Generations {
 protected:
  void SetUp() override {
    phone.install({});
    phone.options().interposed = {"UIAlertController viewDidAppear:", "UIAlertController viewDidDisappear:"};
  }
  long appeared() { return phone.interposedCalls().at("UIAlertController viewDidAppear:"); }
  long disappeared() { return phone.interposedCalls().at("UIAlertController viewDidDisappear:"); }
  bool copied() { return phone.pasteboard().has_value(); }
  // A menu opens at once and stays away until its guard is over.
  void expectTheNextMenuAfter(double seconds) {
    phone.advance(seconds - moment);
    phone.openMenu(other);
    EXPECT_FALSE(phone.showsAlert());
    phone.advance(2 * moment);
    phone.openMenu(other);
    EXPECT_TRUE(phone.showsAlert());
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, DialogTimes, test::bothGenerations, test::generationName);

TEST_P(DialogTimes, ASheetIsSeenAtOnceAndHasComeLater) {
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert());
  phone.advance(test::presentation - moment);
  EXPECT_EQ(appeared(), 0);
  phone.advance(moment);
  EXPECT_EQ(appeared(), 1);
}

TEST_P(DialogTimes, AButtonHasItsTurnWhenItsSheetHasGone) {
  phone.openMenu();
  phone.advance(1).tapLate("Copy BundleID");
  phone.advance(test::dismissal - moment);
  EXPECT_EQ(disappeared(), 0);
  EXPECT_FALSE(copied());
  phone.advance(moment);
  EXPECT_EQ(disappeared(), 1);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ATapWaitsUntilItsSheetHasComeAndThenUntilItHasGone) {
  phone.openMenu();
  const double before = phone.now();
  phone.tap("Copy BundleID");
  EXPECT_NEAR(phone.now() - before, test::presentation + test::dismissal, moment / 10);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ATapOnAButtonThatThereIsNotTakesNoTime) {
  phone.openMenu();
  const double before = phone.now();
  EXPECT_THROW(phone.tap("Nothing of that name"), sim::BadInput);
  EXPECT_EQ(phone.now(), before);
}

TEST_P(DialogTimes, ASheetThatGoesTakesNoMoreTouches) {
  phone.openMenu();
  phone.tapLate("Copy BundleID");
  EXPECT_THROW(phone.tap("Cancel"), sim::BadInput);
  EXPECT_FALSE(copied());
  phone.advance(test::dismissal);
  EXPECT_TRUE(copied());
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(DialogTimes, LockingWhileTheMenuComesTakesItAwayAndItsGuardRunsOut) {
  phone.openMenu();
  phone.advance(0.2).lock();
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.unlock();
  expectTheNextMenuAfter(test::presentation - 0.2 + guard);
}

TEST_P(DialogTimes, ThePowerDownSliderWhileTheMenuComesTakesItAway) {
  phone.openMenu();
  phone.advance(0.2).powerDown();
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.home();
  expectTheNextMenuAfter(test::presentation - 0.2 + guard);
}

TEST_P(DialogTimes, ASecondMenuDoesNotComeWhileTheFirstDoes) {
  phone.openMenu();
  phone.advance(0.2);
  phone.openMenuInSpite(other);
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.screen().windows.size(), 1U);
}

TEST_P(DialogTimes, ASecondMenuWhileTheFirstGoesMakesWayWhenTheButtonHasItsTurn) {
  phone.openMenu();
  phone.advance(2).tapLate("Copy BundleID");
  phone.openMenuInSpite(other);
  EXPECT_EQ(phone.alert().title, "Notes");
  phone.advance(test::dismissal);
  EXPECT_EQ(phone.pasteboard().value().text, other) << "what was touched last";
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(DialogTimes, TheScreenGoingOffBeforeTheButtonsTurnLosesNothing) {
  phone.openMenu();
  phone.tapLate("Copy BundleID").screenOff();
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.advance(test::dismissal);
  EXPECT_TRUE(copied());
}

TEST_P(DialogTimes, ARespringBeforeTheButtonsTurnLosesTheTap) {
  phone.openMenu();
  phone.tapLate("Copy BundleID").respring();
  phone.advance(1);
  EXPECT_FALSE(copied());
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(DialogTimes, ARespringWhileTheMenuComesLeavesNoGuard) {
  phone.openMenu();
  phone.advance(0.2).respring();
  phone.openMenu(other);
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(DialogTimes, TheDialogThatAButtonOpensComesAfterItsSheetHasGone) {
  phone.openMenu();
  phone.advance(1).tapLate("Set Badges");
  EXPECT_EQ(phone.alert().title, "Test App");
  phone.advance(test::dismissal);
  EXPECT_EQ(phone.alert().title, "Set Custom Badge");
  phone.advance(test::presentation - moment);
  EXPECT_EQ(appeared(), 1);
  phone.advance(moment);
  EXPECT_EQ(appeared(), 2);
}

TEST_P(DialogTimes, WithoutAnimationsNothingTakesTime) {
  phone.animations(false);
  const double before = phone.now();
  phone.openMenu();
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.now(), before);
  EXPECT_TRUE(copied());
  EXPECT_EQ(disappeared(), 1);
}
