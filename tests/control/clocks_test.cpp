// The time that passes and the time that the clock shows: the user sets one of them.
#include "tests/mute/muting.hpp"

namespace {
constexpr double day = 86400;
constexpr double year = 365.25 * day;
class Clocks : public test::Muting {
 protected:
  void moveClock(double seconds) { phone.setClock(phone.now() + seconds); }
  bool isMuted() { return reached() == test::nowhere; }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Clocks, test::bothGenerations, test::generationName);

TEST_P(Clocks, StandUntilTimePasses) {
  EXPECT_EQ(phone.now(), start);
  phone.setClock(start - 100 * day);
  EXPECT_EQ(phone.now(), start - 100 * day);
  phone.advance(0.5);
  EXPECT_EQ(phone.now(), start - 100 * day + 0.5);
}

TEST_P(Clocks, GoOnThroughARespring) {
  phone.setClock(start - day).advance(2).respring();
  EXPECT_EQ(phone.now(), start - day + 2);
}

TEST_P(Clocks, SettingTheTimeNeitherHastensNorDelaysWhatWaits) {
  for (const double change : {-1000 * day, 1000 * day}) {
    phone.animations(false);
    phone.openMenu(test::app);
    phone.tap("Rename App").advance(0.1);
    moveClock(change);
    phone.advance(0.14);
    EXPECT_FALSE(phone.showsAlert());
    phone.advance(0.02);
    ASSERT_TRUE(phone.showsAlert());
    EXPECT_EQ(phone.alert().title, "Rename App");
    phone.tap("Cancel").advance(2);
  }
}

TEST_P(Clocks, TheMenusGuardCountsWhatHasPassed) {
  phone.openMenu(test::app);
  phone.tap("Cancel");
  moveClock(1000 * day);
  phone.openMenu(test::app);
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(2);
  moveClock(-2000 * day);
  phone.openMenu(test::app);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Clocks, AMutingEndsAtItsTimeWhicheverWayTheClockComesToIt) {
  mute("For 1 Hour");
  moveClock(3599);
  EXPECT_TRUE(isMuted());
  moveClock(2);
  EXPECT_FALSE(isMuted());
}

TEST_P(Clocks, AClockSetBackMakesAMutingLonger) {
  mute("For 1 Hour");
  moveClock(-day);
  phone.advance(day);
  EXPECT_TRUE(isMuted());
  phone.advance(3601);
  EXPECT_FALSE(isMuted());
}

TEST_P(Clocks, AMutingForeverOutlivesAnyTime) {
  mute("Forever");
  phone.setClock(0);
  EXPECT_TRUE(isMuted());
  moveClock(200 * year);
  EXPECT_TRUE(isMuted());
}

TEST_P(Clocks, TwoHundredYearsPassAtOnce) {
  phone.openMenu(test::app);
  const double before = phone.now();
  phone.advance(200 * year);
  EXPECT_NEAR(phone.now() - before, 200 * year, 0.001);
  phone.openMenuInSpite(test::other);
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(Clocks, TimesThatThereAreNotAreRefused) {
  const double before = phone.now();
  for (const double seconds : {-1.0, 1e10, 1e30}) EXPECT_THROW(phone.setClock(seconds), sim::BadInput);
  for (const double seconds : {-1.0, 9e9, 1e30}) EXPECT_THROW(phone.advance(seconds), sim::BadInput);
  EXPECT_EQ(phone.now(), before);
}
