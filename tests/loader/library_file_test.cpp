// What the images for this PC are made of, read from the files themselves.
#include <gtest/gtest.h>

#include "tests/support/closed_list.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

struct Row {
  const char* name;  ///< in the names of tests
  std::string file, symbols;
};

void PrintTo(const Row& row, std::ostream* stream) { *stream << row.name; }

class PcImages : public testing::TestWithParam<Row> {
 protected:
  static std::vector<std::string> told(const std::string& command) { return linesOf(command + " " + GetParam().file); }
};

std::vector<std::string> matching(const std::vector<std::string>& lines, const std::string& part) {
  std::vector<std::string> found;
  for (const auto& line : lines)
    if (line.find(part) != std::string::npos) found.push_back(line.substr(line.find_first_not_of(' ')));
  return found;
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(, PcImages,
                         testing::Values(Row{"Library", test::pcLibrary, "platform/symbols.txt"},
                                         Row{"Pane", test::pcPane, "pane/symbols.txt"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(PcImages, NeedsExactlyTheClosedList) {
  const auto lines = told("llvm-nm-16 --undefined-only --dynamic --format=just-symbols");
  EXPECT_EQ(test::withoutCLibrary({lines.begin(), lines.end()}), test::namesOfClosedList(GetParam().symbols));
}

TEST_P(PcImages, ExportsNothing) {
  EXPECT_TRUE(told("llvm-nm-16 --dynamic --defined-only --format=just-symbols").empty());
}

TEST_P(PcImages, NeedsNoOtherLibrary) {
  for (const auto& line : matching(told("llvm-readelf-16 --dynamic-table"), "(NEEDED)"))
    EXPECT_NE(line.find("libc.so"), std::string::npos) << line;
}

TEST_P(PcImages, HasOneInitialiserAndNothingAtExit) {
  const auto table = told("llvm-readelf-16 --dynamic-table");
  ASSERT_EQ(matching(table, "(INIT_ARRAYSZ)").size(), 1U);
  EXPECT_NE(matching(table, "(INIT_ARRAYSZ)")[0].find(" 8 (bytes)"), std::string::npos);
  EXPECT_TRUE(matching(table, "(INIT)").empty());
  EXPECT_TRUE(matching(table, "(FINI").empty());
}

TEST_P(PcImages, ContainsNoCxxRuntime) {
  for (const auto* symbol : {"__cxa_", "__gxx_personality", "_Unwind_", "_Znwm", "_ZdlPv", "__cxa_guard"})
    for (const auto& name : told("llvm-nm-16 --format=just-symbols"))
      EXPECT_EQ(name.find(symbol), std::string::npos) << name;
}
