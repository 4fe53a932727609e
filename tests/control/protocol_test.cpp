// The lines between a driver and the home-screen process.
#include <filesystem>

#include "tests/support/phone.hpp"
#include "tests/support/wire.hpp"

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;
const std::string notes = "com.example.notes";

Json request(int id, const std::string& verb, const Json& members = Json::object()) {
  return {{"id", id}, {"verb", verb}, {"members", members}};
}

class Protocol : public testing::TestWithParam<std::string> {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path() / "device"};
  test::Wire wire{device, GetParam()};

  // An archiver that does not end before the file is there.
  void holdArchiver(const std::string& until) {
    fs::remove(device.root() / "usr/bin/tar");
    sim::writeFile(device.root() / "usr/bin/tar",
                   "#!/bin/sh\nwhile [ ! -e /var/mobile/" + until + " ]; do sleep 0.01; done\n");
    fs::permissions(device.root() / "usr/bin/tar", fs::perms::all);
  }
  void finishArchiver(const std::string& file) { sim::writeFile(device.root() / "var/mobile" / file, ""); }
  void openMenu(const std::string& icon = notes) { openMenu(wire, icon); }
  static void openMenu(test::Wire& wire, const std::string& icon) {
    wire.ask({{"verb", "swipe"}, {"members", {{"direction", "up"}, {"id", icon}}}});
    wire.ask({{"verb", "advance"}, {"members", {{"seconds", 1}}}});
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Protocol, testing::Values("old", "new"),
                         [](const auto& info) { return info.param == "old" ? "Old" : "New"; });

TEST_P(Protocol, TheFirstLineSaysThatTheHomeScreenIsUpAndInWhichVersionItSpeaks) {
  EXPECT_EQ(wire.receive(), (Json{{"push", "ready"}, {"version", 1}}));
}

TEST_P(Protocol, AnAnswerRepeatsTheRequestsNumber) {
  const Json answer = wire.ask(request(-7, "now"));
  EXPECT_EQ(answer.at("id"), -7);
  EXPECT_TRUE(answer.at("value").is_number());
  EXPECT_TRUE(answer.at("seconds").is_number());
  EXPECT_FALSE(wire.ask({{"verb", "now"}}).contains("id"));
  EXPECT_EQ(wire.ask(request(8, "tap", {{"title", "OK"}})).at("id"), 8);
}

TEST_P(Protocol, WhatIsNoRequestIsAnsweredSo) {
  for (const std::string& line :
       {std::string("nonsense"), std::string("[1, 2]"), std::string("{}"), std::string(R"({"verb": 3})"),
        std::string(R"({"verb": "now", "id": "one"})"), std::string(R"({"verb": "now", "title": "OK"})"),
        std::string(R"({"verb": "now", "catching": 1})"), std::string(R"({"verb": "dance"})")}) {
    wire.send(line);
    const Json answer = wire.answer();
    EXPECT_EQ(answer.value("kind", ""), "bad request") << line << answer;
    EXPECT_FALSE(answer.value("error", "").empty()) << line;
  }
}

TEST_P(Protocol, ALogIsReadFromAnyPlaceAndLosesNothing) {
  const auto events = [&](const Json& members) { return wire.ask(request(1, "events", members)).at("value"); };
  EXPECT_EQ(events(Json::object()), (Json{{"entries", Json::array()}, {"next", 0}}));
  wire.ask(request(2, "launch", {{"id", notes}}));
  wire.ask(request(3, "screen"));
  EXPECT_EQ(events(Json::object()), (Json{{"entries", {"launched " + notes}}, {"next", 1}}));
  wire.ask(request(4, "home"));
  wire.ask(request(5, "launch", {{"id", "com.example.mail"}}));
  EXPECT_EQ(events({{"since", 1}}), (Json{{"entries", {"launched com.example.mail"}}, {"next", 2}}));
  EXPECT_EQ(events({{"since", 2}}), (Json{{"entries", Json::array()}, {"next", 2}}));
  EXPECT_EQ(events({{"since", 50}}).at("next"), 2);
  EXPECT_EQ(events(Json::object()).at("entries").size(), 2U);
  EXPECT_EQ(wire.ask(request(6, "launches", {{"since", 1}})).at("value").at("entries")[0].at("id"), "com.example.mail");
}

TEST_P(Protocol, DarwinPostsAreLoggedWhoeverPosts) {
  wire.ask(request(1, "post", {{"name", "com.example.word"}}));
  EXPECT_EQ(wire.ask(request(2, "darwin-posts")).at("value"), (Json{{"entries", {"com.example.word"}}, {"next", 1}}));
}

TEST_P(Protocol, EventsAndChangesArePushedToWhoeverSubscribes) {
  wire.ask(request(1, "launch", {{"id", notes}}));
  wire.ask(request(2, "home"));
  for (const Json& line : wire.passed) EXPECT_EQ(line.at("push"), "ready");
  wire.passed.clear();
  wire.ask(request(3, "subscribe", {{"on", true}}));
  wire.ask(request(4, "launch", {{"id", "com.example.mail"}}));
  EXPECT_EQ(wire.push("event").at("text"), "launched com.example.mail");
  EXPECT_EQ(wire.receive(), (Json{{"push", "changed"}}));
  EXPECT_TRUE(wire.passed.empty()) << Json(wire.passed);
  // A look changes nothing.
  wire.ask(request(5, "screen"));
  wire.ask(request(6, "subscribe", {{"on", false}}));
  wire.ask(request(7, "home"));
  wire.ask(request(8, "now"));
  EXPECT_TRUE(wire.passed.empty()) << Json(wire.passed);
}

TEST_P(Protocol, WhileARequestWaitsForAProgramOthersAreAnswered) {
  openMenu();
  holdArchiver("go");
  wire.send(request(10, "tap", {{"title", "Backup Data"}}));
  EXPECT_EQ(wire.push("waiting for").at("program"), "tar");
  EXPECT_EQ(wire.ask(request(11, "waiting")).at("value"), Json{"tar"});
  EXPECT_EQ(wire.ask(request(12, "lock")).at("id"), 12);
  EXPECT_EQ(wire.ask(request(13, "screen")).at("value").at("locked"), true);
  finishArchiver("go");
  wire.push("waited for");
  EXPECT_EQ(wire.answer().at("id"), 10);
  EXPECT_TRUE(wire.ask(request(14, "waiting")).at("value").empty());
}

TEST_P(Protocol, ATapThatGoesOnIsAnsweredWhenTheWaitBeginsAndOnce) {
  openMenu();
  holdArchiver("go");
  wire.send(request(10, "tap", {{"title", "Backup Data"}, {"go-on", true}}));
  const Json answer = wire.answer();
  EXPECT_EQ(answer.at("id"), 10);
  EXPECT_EQ(answer.at("value"), nullptr);
  finishArchiver("go");
  wire.push("waited for");
  EXPECT_EQ(wire.ask(request(11, "now")).at("id"), 11);
}

TEST_P(Protocol, WaitsNest) {
  openMenu();
  holdArchiver("first");
  wire.send(request(10, "tap", {{"title", "Backup Data"}}));
  wire.push("waiting for");
  wire.ask(request(11, "lock"));
  wire.ask(request(12, "unlock"));
  holdArchiver("second");
  openMenu("com.example.mail");
  wire.send(request(13, "tap", {{"title", "Backup Data"}}));
  wire.push("waiting for");
  EXPECT_EQ(wire.ask(request(14, "waiting")).at("value"), (Json{"tar", "tar"}));
  // The first has to wait for the second.
  finishArchiver("first");
  EXPECT_EQ(wire.ask(request(15, "waiting")).at("value").size(), 2U);
  finishArchiver("second");
  EXPECT_EQ(wire.answer().at("id"), 13);
  EXPECT_EQ(wire.answer().at("id"), 10);
}

TEST_P(Protocol, AProcessThatWaitsForAProgramGivesSignsOfLife) {
  openMenu();
  holdArchiver("never");
  wire.send(request(10, "tap", {{"title", "Backup Data"}}));
  wire.push("waiting for");
  wire.push("alive");
  wire.push("alive");
}

TEST_P(Protocol, WhenTheDriverGoesTheProcessEndsWellInTheMidstOfWaits) {
  openMenu();
  holdArchiver("never");
  wire.send(request(10, "tap", {{"title", "Backup Data"}}));
  wire.push("waiting for");
  EXPECT_EQ(wire.process().end(std::chrono::seconds(30)), 0);
}

TEST_P(Protocol, AnExceptionPassesByTheRequestsBetweenItAndWhoeverCatchesIt) {
  const std::string sound = "SBNCSoundController playSoundForNotificationRequest:";
  test::Wire watched{device, GetParam(), {"--interpose", sound}};
  openMenu(watched, notes);
  holdArchiver("never");
  Json outer = request(10, "tap", {{"title", "Backup Data"}});
  outer["catching"] = true;
  watched.send(outer);
  watched.push("waiting for");
  watched.ask(request(11, "interpose", {{"method", sound}, {"do", "raise"}}));
  watched.send(request(12, "notify", {{"id", notes}, {"text", "hello"}, {"places", {"sound"}}}));
  EXPECT_EQ(watched.answer(), (Json{{"id", 12}, {"error", "An exception passed by"}, {"kind", "raised"}}));
  const Json answer = watched.answer();
  EXPECT_EQ(answer.at("id"), 10);
  EXPECT_EQ(answer.at("value"), (Json{{"raised", true}}));
  EXPECT_TRUE(watched.ask(request(13, "waiting")).at("value").empty());
}

TEST_P(Protocol, TheClockRunsOnInAWaitAsItDoesOutside) {
  openMenu();
  holdArchiver("go");
  wire.send(request(10, "tap", {{"title", "Backup Data"}}));
  wire.push("waiting for");
  const double before = wire.ask(request(11, "now")).at("value");
  wire.ask(request(12, "advance", {{"seconds", 100}}));
  EXPECT_EQ(wire.ask(request(13, "now")).at("value"), before + 100);
  finishArchiver("go");
  wire.answerTo(10);
  EXPECT_EQ(wire.ask(request(14, "now")).at("value"), before + 100);
}

TEST_P(Protocol, ALiveClockRunsInAWaitToo) {
  test::Wire live{device, GetParam(), {"--live"}};
  openMenu(live, notes);
  holdArchiver("go");
  live.send(request(10, "tap", {{"title", "Backup Data"}}));
  live.push("waiting for");
  const double before = live.ask(request(11, "now")).at("value");
  live.push("alive");
  EXPECT_GT(live.ask(request(12, "now")).at("value").get<double>(), before);
  finishArchiver("go");
  EXPECT_EQ(live.answerTo(10).value("error", ""), "");
}
