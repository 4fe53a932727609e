// The library maps into any process that exports the closed list, not only into the simulator.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

std::vector<std::string> mappedAt(const std::string& coreVersion) {
  return linesOf(std::string(test::minimalHost) + " " + test::pcLibrary + " " + coreVersion);
}

bool mentions(const std::vector<std::string>& lines, const std::string& part) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const auto& line) { return line.find(part) != std::string::npos; });
}

}  // namespace

TEST(OtherHost, MapsTheOldGroupBelowTheThreshold) {
  const auto lines = mappedAt("1652.19");
  EXPECT_TRUE(mentions(lines, "add SBIconController showAlertView v@:"));
  EXPECT_TRUE(mentions(lines, "hook SBPowerDownController orderFront"));
  EXPECT_FALSE(mentions(lines, "SBHIconManager"));
  EXPECT_FALSE(mentions(lines, "without a slot"));
}

TEST(OtherHost, MapsTheNewGroupAtTheThreshold) {
  const auto lines = mappedAt("1652.2");
  EXPECT_TRUE(mentions(lines, "add SBHIconManager showAlertView v@:"));
  EXPECT_TRUE(mentions(lines, "hook CSCoverSheetViewController viewWillAppear:"));
  EXPECT_FALSE(mentions(lines, " SBIconController "));
}

TEST(OtherHost, SeesEverythingHappenWithinAPool) {
  const auto lines = mappedAt("1700");
  EXPECT_EQ(lines.front(), "pool");
  EXPECT_EQ(lines.back(), "end of pool");
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "pool"), std::count(lines.begin(), lines.end(), "end of pool"));
}

TEST(OtherHost, SeesFourObserversInEitherGroup) {
  for (const auto* version : {"1240.1", "1700"}) {
    const auto lines = mappedAt(version);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "observe"), 4);
  }
}
