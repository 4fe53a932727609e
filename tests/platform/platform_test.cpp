// The parts of the platform that the add-on itself does not try to the full.
#include <algorithm>
#include <cmath>

#include "tests/support/command.hpp"
#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"

namespace {

using Json = nlohmann::ordered_json;

class Platform : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  Json probed = Json::parse(test::runInside(sim::Device(folder.path()), "platform-probe"));
};

class MissingHooks : public test::OldGeneration {};

}  // namespace

TEST_F(Platform, DarwinPostsOfOneNameBecomeOneAndArriveLater) {
  const Json& posts = probed.at("posts");
  EXPECT_EQ(posts[0], Json::array()) << "not while they are posted";
  EXPECT_EQ(posts[1], (Json{"one", "two"}));
  EXPECT_EQ(posts[2], (Json{"one", "again", "posted", "again", "posted", "again", "posted"}))
      << "what an observer posts is not lost, and has a turn of its own";
}

TEST_F(Platform, BlocksAreKeptByCollections) {
  EXPECT_EQ(probed.at("blocks"), (Json{{"equal", {true, false}},
                                       {"hashes", true},
                                       {"found", {true, false}},
                                       {"copied", true},
                                       {"references", 3},
                                       {"alive within the pool", 2},
                                       {"alive in collections", 1},
                                       {"called", {7, 9}},
                                       {"classes", {"__NSMallocBlock__", "__NSGlobalBlock__"}},
                                       {"blocks", {true, true}},
                                       {"alive in one of them", 1},
                                       {"alive at last", 0}}));
}

TEST_F(Platform, ATextFieldsDelegateHasItsSayKeyByKey) {
  const Json& fields = probed.at("text fields");
  const auto change = [](const std::string& before, int location, int length, const std::string& replacement) {
    return Json::array({before, location, length, replacement});
  };
  const auto field = [](const Json& asked, const std::string& text) { return Json{{"asked", asked}, {"text", text}}; };
  EXPECT_EQ(fields.at("typed"), field(Json::array({change("old", 0, 3, "a"), change("a", 1, 0, "e\u0301"),
                                                   change("ae\u0301", 3, 0, "x"), change("ae\u0301", 3, 0, "b")}),
                                      "ae\u0301b"));
  EXPECT_EQ(fields.at("pasted"), field(Json::array({change("ae\u0301b", 0, 4, "whole text")}), "whole text"));
  EXPECT_EQ(fields.at("nothing typed"), field(Json::array({change("whole text", 0, 10, "")}), ""));
  EXPECT_EQ(fields.at("refused"), field(Json::array({change("kept", 0, 4, "n")}), "kept"));
  EXPECT_EQ(fields.at("without a delegate"), field(Json::array(), "xyz"));
}

TEST_F(Platform, ATextFieldsClearButtonIsThereWhileThereIsSomethingToClear) {
  const Json& fields = probed.at("text fields");
  EXPECT_EQ(fields.at("clearing refused"), (Json{{"asked", {"clear kept"}}, {"text", "kept"}}));
  EXPECT_EQ(fields.at("cleared"), (Json{{"asked", {"clear kept"}}, {"text", ""}}));
  EXPECT_EQ(fields.at("clear button"), (Json{false, true, false, true, false}));
}

TEST_F(Platform, OnlyWhatIsSeenAndTakesTouchesIsTouched) {
  EXPECT_EQ(probed.at("touched"), (Json{{"as they are", "the upper"},
                                        {"hidden", "the lower"},
                                        {"without interaction", "the lower"},
                                        {"clear", "the lower"},
                                        {"elsewhere", "the lower"},
                                        {"in a hidden one", "none"}}));
}

TEST_F(Platform, DelayedMessagesComeInTheirOrderUnlessTheyAreCancelled) {
  EXPECT_EQ(probed.at("delayed messages"), (Json{{"soon", "one of two"}, {"late"}}));
}

TEST_F(Platform, AHookWithoutAMethodIsLogged) {
  EXPECT_EQ(probed.at("missing hooks"), (Json{"nil length", "NSString noSuchMethod", true}));
}

TEST_F(MissingHooks, OfAnotherGenerationAreTold) {
  phone.options().coreVersion = 1665.15;
  std::vector<std::string> missing;
  for (const auto& call : phone.calls())
    if (call.kind == "missing") missing.push_back(call.className + " " + call.selector);
  EXPECT_NE(std::find(missing.begin(), missing.end(), "nil postNotificationRequest:"), missing.end());
  EXPECT_NE(phone.output().find("SpringBoard: nothing to hook: nil postNotificationRequest:\n"), std::string::npos)
      << phone.output();
}

TEST(ImpossibleClock, IsRefusedByTheProcessInOneLine) {
  for (const std::string seconds : {"1e30", "1e19", "9e9", "-1", "nan"}) {
    const auto lines = linesOf(std::string(test::buildFolder) + "/SpringBoard --generation old --clock " + seconds +
                               " 2>&1; echo status $?");
    ASSERT_EQ(lines.size(), 2U) << seconds;
    EXPECT_TRUE(lines[0].starts_with("SpringBoard: ")) << lines[0];
    EXPECT_EQ(lines[1], "status 2");
  }
}

TEST(ImpossibleClock, IsRefusedByThePhoneBeforeAnythingStarts) {
  for (const double seconds : {1e30, 1e19, 9e9, -1.0, std::nan("")}) {
    test::Phone phone(sim::Generation::old, {.clock = seconds});
    EXPECT_THROW(phone.screen(), sim::BadInput) << seconds;
  }
}
