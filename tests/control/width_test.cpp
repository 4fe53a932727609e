// The columns that a text takes in a terminal: pictures of the screen keep their right edge by them.
#include "simulator/control/width.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

struct Text {
  std::string text;
  std::size_t columns;
};
[[maybe_unused]] void PrintTo(const Text& text, std::ostream* output) { *output << text.text; }

class Width : public testing::TestWithParam<Text> {};

}  // namespace

TEST_P(Width, IsThatOfWhatAPersonSees) { EXPECT_EQ(sim::columns(GetParam().text), GetParam().columns); }

INSTANTIATE_TEST_SUITE_P(Plain, Width, testing::Values(Text{"", 0}, Text{"Notes", 5}, Text{"Größe", 5}));
INSTANTIATE_TEST_SUITE_P(CombiningMarks, Width, testing::Values(Text{"Cafe\u0301", 4}, Text{"e\u0301\u0323\u0308", 1}));
INSTANTIATE_TEST_SUITE_P(WideLetters, Width, testing::Values(Text{"天気", 4}, Text{"한글", 4}, Text{"ﾒﾓ", 2}));
INSTANTIATE_TEST_SUITE_P(Emoji, Width,
                         testing::Values(Text{"☕️", 2}, Text{"✈️", 2}, Text{"✈", 1}, Text{"👍🏽", 2}, Text{"1️⃣", 2}));
INSTANTIATE_TEST_SUITE_P(JoinedEmoji, Width,
                         testing::Values(Text{"👨‍👩‍👧‍👦", 2}, Text{"🏳️‍🌈", 2},
                                         Text{"a👩‍🚀b", 4}));
INSTANTIATE_TEST_SUITE_P(Flags, Width, testing::Values(Text{"🇮🇹", 2}, Text{"🇮🇹🇫🇷", 4}));
INSTANTIATE_TEST_SUITE_P(NothingToSee, Width, testing::Values(Text{"a\u200Bb", 2}, Text{"\u200E\u200F", 0}));
INSTANTIATE_TEST_SUITE_P(NoText, Width, testing::Values(Text{"a\xFF\xFE", 3}, Text{"\xC3", 1}));
