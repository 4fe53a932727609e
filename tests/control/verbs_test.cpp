// The table of verbs: what it says, and that it is what requests are held against.
#include "tests/support/command.hpp"
#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"
#include "tests/support/wire.hpp"

namespace {

using Json = nlohmann::json;

// What no member of its type takes.
Json wrongFor(const Json& member) {
  const std::string type = member.at("type");
  if (type == "text" || type == "id" || type == "switch") return 3;
  if (type == "integer") return 1.5;
  if (type == "list" && member.at("items") != "json") return Json::array({Json::object()});
  return "no such word";
}

class Verbs : public testing::TestWithParam<std::string> {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path() / "device"};
  test::Wire wire{device, GetParam()};
  Json table = wire.ask({{"verb", "verbs"}}).at("value");

  const Json& verb(const std::string& name) {
    for (const Json& each : table)
      if (each.at("name") == name) return each;
    throw std::runtime_error("no verb " + name);
  }
  // Asks for something that cannot be done: one line, of that kind.
  std::string refused(const std::string& name, const Json& members, const std::string& kind = "bad request") {
    const Json answer = wire.ask({{"verb", name}, {"members", members}});
    EXPECT_EQ(answer.value("kind", ""), kind) << name << members << answer;
    const std::string error = answer.value("error", "");
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    return error;
  }
  Json screen() { return wire.ask({{"verb", "screen"}}).at("value"); }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Verbs, testing::Values("old", "new"),
                         [](const auto& info) { return info.param == "old" ? "Old" : "New"; });

TEST_P(Verbs, HaveOneLineOfHelpEachAndAName) {
  EXPECT_GT(table.size(), 40U);
  std::set<std::string> names;
  for (const Json& each : table) {
    const std::string name = each.at("name");
    EXPECT_TRUE(names.insert(name).second) << name << " twice";
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos) << name;
    const std::string help = each.at("help");
    EXPECT_GE(help.size(), 5U) << name;
    EXPECT_EQ(help.find('\n'), std::string::npos) << name;
    EXPECT_TRUE((std::set<std::string>{"gesture", "look", "probe"}.contains(each.at("group")))) << name;
  }
}

TEST_P(Verbs, HaveMembersOfKnownTypesThoseThatAreNeededFirst) {
  const std::set<std::string> types{"text", "id", "number", "integer", "switch", "choice", "list", "json"};
  for (const Json& each : table) {
    bool optional = false;
    std::set<std::string> names;
    for (const Json& member : each.at("members")) {
      const std::string name = member.at("name");
      EXPECT_TRUE(names.insert(name).second) << each;
      EXPECT_TRUE(types.contains(member.at("type"))) << member;
      EXPECT_EQ(member.at("type") == "list", member.contains("items")) << member;
      if (member.at("type") == "choice") EXPECT_GE(member.at("choices").size(), 2U) << member;
      EXPECT_FALSE(optional && member.at("needed")) << each;
      optional = optional || !member.at("needed");
    }
  }
}

TEST_P(Verbs, ArePrintedWithoutADevice) {
  std::string text;
  for (const auto& line : linesOf(test::buildFolder + std::string("/SpringBoard --verbs"))) text += line + "\n";
  EXPECT_EQ(Json::parse(text), table);
}

TEST_P(Verbs, TakeNothingButWhatTheTableSays) {
  const Json before = screen();
  for (const Json& each : table) {
    const std::string name = each.at("name");
    EXPECT_NE(refused(name, {{"unheard-of", 1}}).find("\"" + name + "\" takes "), std::string::npos);
    refused(name, "no object");
    for (const Json& member : each.at("members")) {
      if (member.at("type") == "json") continue;
      const std::string error = refused(name, {{member.at("name"), wrongFor(member)}});
      EXPECT_TRUE(error.starts_with("\"" + member.at("name").get<std::string>() + "\" is no ")) << error;
    }
  }
  EXPECT_EQ(screen(), before);
}

TEST_P(Verbs, NeedWhatTheTableSays) {
  for (const Json& each : table) {
    const auto& members = each.at("members");
    if (members.empty() || !members[0].at("needed")) continue;
    EXPECT_NE(refused(each.at("name"), Json::object()).find(" is missing"), std::string::npos) << each;
    EXPECT_NE(refused(each.at("name"), {{members[0].at("name"), nullptr}}).find(" is missing"), std::string::npos);
  }
}

TEST_P(Verbs, TheErrorTellsTheChoices) {
  EXPECT_EQ(refused("swipe", {{"direction", "left"}, {"id", "com.example.notes"}}),
            "\"direction\" is no such word: \"left\": \"swipe\" takes \"direction\" (up, down), \"id\", [\"samples\"]");
}

TEST_P(Verbs, ASwipeGoesWhereItSays) {
  const std::string id = "com.example.notes";
  refused("swipe", {{"direction", "up"}, {"id", id}, {"samples", {0, 20}}});
  refused("swipe", {{"direction", "down"}, {"id", id}, {"samples", {0, -20}}});
  refused("swipe", {{"direction", "up"}, {"id", id}, {"samples", {0, -20, 1}}});
  EXPECT_TRUE(screen().at("windows").empty());
  EXPECT_FALSE(wire.ask({{"verb", "swipe"}, {"members", {{"direction", "up"}, {"id", id}}}}).contains("error"));
  EXPECT_FALSE(screen().at("windows").empty());
}

TEST_P(Verbs, IconsGoByTheirLabelsToo) {
  wire.ask({{"verb", "launch"}, {"members", {{"id", "PhotoBox"}}}});
  EXPECT_EQ(screen().at("frontmost"), "com.example.photobox");
  wire.ask({{"verb", "home"}});
  EXPECT_EQ(wire.ask({{"verb", "touch"}, {"members", {{"id", "Garden Diary"}}}}).count("error"), 0U);
}

TEST_P(Verbs, AnIdentifierComesBeforeALabelAndALabelOfSeveralIsRefused) {
  const auto install = [&](const std::string& id, const std::string& name) {
    const auto bundle = device.root() / "var/containers/Bundle/Application" / sim::Device::uuid(id) / "Test.app";
    std::filesystem::create_directories(bundle);
    sim::PropertyList({{"CFBundleIdentifier", id}, {"CFBundleDisplayName", name}}).write(bundle / "Info.plist");
  };
  install("com.example.twin.a", "Twin");
  install("com.example.twin.b", "Twin");
  install("com.example.trap", "com.example.notes");
  wire.ask({{"verb", "rescan"}});
  EXPECT_EQ(refused("launch", {{"id", "Twin"}}, "refused"),
            "More icons than one are called \"Twin\": com.example.twin.a, com.example.twin.b");
  EXPECT_EQ(screen().at("frontmost"), "");
  wire.ask({{"verb", "launch"}, {"members", {{"id", "com.example.notes"}}}});
  EXPECT_EQ(screen().at("frontmost"), "com.example.notes");
}

TEST_P(Verbs, AffordancesTellWhatCanBeDoneNow) {
  const auto affordances = [&](const std::string& kind) {
    return wire.ask({{"verb", "affordances"}}).at("value").at(kind);
  };
  const auto titles = [&](const std::string& kind) {
    std::vector<std::string> all;
    for (const Json& each : affordances(kind)) all.push_back(each.at("title"));
    return all;
  };
  const Json icons = affordances("icons");
  const Json shown = screen().at("icons");
  ASSERT_EQ(icons.size(), shown.size());
  std::set<Json> points;
  for (std::size_t i = 0; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i].at("label"), shown[i].at("label"));
    if (shown[i].at("kind") == "application") EXPECT_EQ(icons[i].at("id"), shown[i].at("id"));
    EXPECT_TRUE(points.insert(icons[i].at("point")).second) << icons[i];
  }
  EXPECT_TRUE(titles("buttons").empty());
  wire.ask({{"verb", "force-touch"}, {"members", {{"id", "Notes"}}}});
  std::vector<std::string> entries;
  const Json list = screen().at("quickActions").at("entries");
  for (const Json& each : list) entries.push_back(each.at("title"));
  EXPECT_FALSE(entries.empty());
  EXPECT_EQ(titles("entries"), entries);
  wire.ask({{"verb", "home"}});
  EXPECT_TRUE(titles("entries").empty());
  wire.ask({{"verb", "swipe"}, {"members", {{"direction", "up"}, {"id", "Notes"}}}});
  std::vector<std::string> buttons;
  const Json windows = screen().at("windows");
  ASSERT_FALSE(windows.empty());
  for (const Json& each : windows.back().at("alert").at("buttons")) buttons.push_back(each.at("title"));
  EXPECT_EQ(titles("buttons"), buttons);
  EXPECT_EQ(affordances("device"), (Json{"home", "lock", "screen-off", "power-down"}));
  wire.ask({{"verb", "lock"}});
  EXPECT_TRUE(affordances("icons").empty());
  EXPECT_EQ(affordances("device"), (Json{"home", "unlock", "screen-on", "power-down"}));
}

TEST_P(Verbs, WhatTheHomeScreenDoesNotHaveIsRefused) {
  refused("touch", {{"id", "com.example.nobody"}}, "refused");
  refused("tap", {{"title", "OK"}}, "refused");
  refused("class", {{"name", "NoSuchClass"}}, "refused");
  refused("advance", {{"seconds", -1}});
  refused("events", {{"since", -1}});
}
