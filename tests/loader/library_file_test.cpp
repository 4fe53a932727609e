// What the library for this PC is made of, read from the file itself.
#include <gtest/gtest.h>

#include "tests/support/closed_list.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

const std::string pcLibrary = test::pcLibrary;

std::vector<std::string> matching(const std::vector<std::string>& lines, const std::string& part) {
  std::vector<std::string> found;
  for (const auto& line : lines)
    if (line.find(part) != std::string::npos) found.push_back(line.substr(line.find_first_not_of(' ')));
  return found;
}

}  // namespace

TEST(PcLibrary, NeedsExactlyTheClosedList) {
  const auto lines = linesOf("llvm-nm-16 --undefined-only --dynamic --format=just-symbols " + pcLibrary);
  EXPECT_EQ(test::withoutCLibrary({lines.begin(), lines.end()}), test::namesOfClosedList("platform/symbols.txt"));
}

TEST(PcLibrary, ExportsNothing) {
  EXPECT_TRUE(linesOf("llvm-nm-16 --dynamic --defined-only --format=just-symbols " + pcLibrary).empty());
}

TEST(PcLibrary, NeedsNoOtherLibrary) {
  for (const auto& line : matching(linesOf("llvm-readelf-16 --dynamic-table " + pcLibrary), "(NEEDED)"))
    EXPECT_NE(line.find("libc.so"), std::string::npos) << line;
}

TEST(PcLibrary, HasOneInitialiserAndNothingAtExit) {
  const auto table = linesOf("llvm-readelf-16 --dynamic-table " + pcLibrary);
  ASSERT_EQ(matching(table, "(INIT_ARRAYSZ)").size(), 1U);
  EXPECT_NE(matching(table, "(INIT_ARRAYSZ)")[0].find(" 8 (bytes)"), std::string::npos);
  EXPECT_TRUE(matching(table, "(INIT)").empty());
  EXPECT_TRUE(matching(table, "(FINI").empty());
}

TEST(PcLibrary, ContainsNoCxxRuntime) {
  for (const auto* symbol : {"__cxa_", "__gxx_personality", "_Unwind_", "_Znwm", "_ZdlPv", "__cxa_guard"})
    for (const auto& name : linesOf("llvm-nm-16 --format=just-symbols " + pcLibrary))
      EXPECT_EQ(name.find(symbol), std::string::npos) << name;
}
