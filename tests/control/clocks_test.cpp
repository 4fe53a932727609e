// The time that passes and the time that the clock shows: the user sets one of them.
#include "tests/mute/muting.hpp"

namespace {
constexpr double day = 86400;
constexpr double year = 365.25 * day;
class Clocks : public test::Muting {
 protected:
  void moveClock(double seconds) { home->setClock(home->now() + seconds); }
  bool isMuted() { return reached() == test::nowhere; }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Clocks, test::bothGenerations, test::generationName);

TEST_P(Clocks, StandUntilTimePasses) {
  EXPECT_EQ(home->now(), start);
  home->setClock(start - 100 * day);
  EXPECT_EQ(home->now(), start - 100 * day);
  home->advance(0.5);
  EXPECT_EQ(home->now(), start - 100 * day + 0.5);
}

TEST_P(Clocks, GoOnThroughARespring) {
  home->setClock(start - day).advance(2).respring();
  EXPECT_EQ(home->now(), start - day + 2);
}

TEST_P(Clocks, SettingTheTimeNeitherHastensNorDelaysWhatWaits) {
  for (const double change : {-1000 * day, 1000 * day}) {
    home->animations(false);
    home.openMenu(test::app);
    home->tap("Rename App").advance(0.1);
    moveClock(change);
    home->advance(0.14);
    EXPECT_FALSE(home.showsAlert());
    home->advance(0.02);
    ASSERT_TRUE(home.showsAlert());
    EXPECT_EQ(home.alert().title, "Rename App");
    home->tap("Cancel").advance(2);
  }
}

TEST_P(Clocks, TheMenusGuardCountsWhatHasPassed) {
  home.openMenu(test::app);
  home->tap("Cancel");
  moveClock(1000 * day);
  home.openMenu(test::app);
  EXPECT_FALSE(home.showsAlert());
  home->advance(2);
  moveClock(-2000 * day);
  home.openMenu(test::app);
  EXPECT_TRUE(home.showsAlert());
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
  home->advance(day);
  EXPECT_TRUE(isMuted());
  home->advance(3601);
  EXPECT_FALSE(isMuted());
}

TEST_P(Clocks, AMutingForeverOutlivesAnyTime) {
  mute("Forever");
  home->setClock(0);
  EXPECT_TRUE(isMuted());
  moveClock(200 * year);
  EXPECT_TRUE(isMuted());
}

TEST_P(Clocks, TwoHundredYearsPassAtOnce) {
  home.openMenu(test::app);
  const double before = home->now();
  home->advance(200 * year);
  EXPECT_NEAR(home->now() - before, 200 * year, 0.001);
  home.openMenuInSpite(test::other);
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(Clocks, TimesThatThereAreNotAreRefused) {
  const double before = home->now();
  for (const double seconds : {-1.0, 1e10, 1e30}) EXPECT_THROW(home->setClock(seconds), sim::BadInput);
  for (const double seconds : {-1.0, 9e9, 1e30}) EXPECT_THROW(home->advance(seconds), sim::BadInput);
  EXPECT_EQ(home->now(), before);
}
