// The pane's two lists: renamed labels, of which each can be taken away, and muted applications.
#include "tests/pane/pane.hpp"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using Labels = std::vector<std::string>;
using test::app;
using test::other;

constexpr double delay = 10;

class RenamedLabels : public test::Pane {
 protected:
  void TearDown() override {
    // What was locked has to be removed at the end.
    fs::permissions(file().parent_path(), fs::perms::owner_all);
  }
  // The rows that stand for names.
  Labels names() {
    Labels all = rows();
    std::erase(all, restart);
    return all;
  }
  static inline const std::string restart = "Restart Home Screen";
};

class MutedApplications : public test::Pane {
 protected:
  /// 2023-11-14, 22:13:20 where the time is UTC.
  static constexpr double start = 1'700'000'000;
  void SetUp() override {
    phone.options().clock = start;
    Pane::SetUp();
  }
  fs::path list() const { return phone.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"); }
  void store(const Json& entries) const { sim::PropertyList(Json{{"entries", entries}}).write(list()); }
  void storeXml(const std::string& elements) const {
    sim::writeFile(list(), R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + elements + "</plist>");
  }
  std::map<std::string, std::string> muted() {
    std::map<std::string, std::string> all;
    for (const auto& cell : openList("Muted Applications").pane().cells)
      if (cell.kind != "group") all[cell.label] = cell.value;
    phone.closePane();
    return all;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, RenamedLabels, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, MutedApplications, test::bothGenerations, test::generationName);

// Renamed labels

TEST_P(RenamedLabels, AreListedUnderTheApplicationsOwnNames) {
  phone.rename(app, "Mine");
  phone.rename(other, "");
  openList("Renamed Labels");
  EXPECT_EQ(phone.pane().title, "Renamed Labels");
  EXPECT_EQ(names(), (Labels{"Notes", "Test App"}));
  EXPECT_EQ(shown("Test App"), "Mine");
  EXPECT_EQ(shown("Notes"), "");
}

TEST_P(RenamedLabels, AreExplainedWhenThereAreNone) {
  openList("Renamed Labels");
  EXPECT_EQ(names(), Labels());
  EXPECT_NE(footer().find("No label has been renamed"), std::string::npos) << footer();
}

TEST_P(RenamedLabels, OfApplicationsThatHaveGoneAreListedByIdentifier) {
  phone.rename(app, "Mine");
  phone.uninstall(app);
  openList("Renamed Labels");
  EXPECT_EQ(names(), Labels{app});
  EXPECT_EQ(shown(app), "Mine");
}

TEST_P(RenamedLabels, AreNoSettingsAndNothingButTexts) {
  sim::PropertyList(Json{{"enabled", "YES"},
                         {"direction", "0"},
                         {other, {1, 2}},
                         {"com.example.weather", 5},
                         {"com.example.chess", {{"a", "b"}}},
                         {app, "Mine"}})
      .write(file());
  openList("Renamed Labels");
  EXPECT_EQ(names(), Labels{"Test App"});
}

TEST_P(RenamedLabels, AreTakenAwayOneByOneForGood) {
  phone.rename(app, "Mine");
  phone.rename(other, "Jotter");
  open().setCell("Text Badges", "on").pressCell("Renamed Labels").deleteCell("Test App");
  EXPECT_EQ(names(), Labels{"Notes"});
  EXPECT_EQ(nlohmann::json(stored()), nlohmann::json({{other, "Jotter"}, {"useText", true}}));
  EXPECT_EQ(nlohmann::json(held()), nlohmann::json({{other, "Jotter"}, {"useText", true}}));
  phone.flush().advance(2 * delay).respring();
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(label(other), "Jotter");
  EXPECT_EQ(names(), Labels{"Notes"});
  phone.deleteCell("Notes");
  EXPECT_EQ(names(), Labels());
  EXPECT_NE(footer().find("No label has been renamed"), std::string::npos) << footer();
}

TEST_P(RenamedLabels, GiveTheirApplicationsTheirOwnNamesBackOnTheHomeScreen) {
  phone.rename(app, "Mine");
  phone.rename(other, "Jotter");
  openList("Renamed Labels").deleteCell("Test App");
  if (isOld()) {
    EXPECT_EQ(label(), "Mine") << "nothing makes this home screen read a label but its start";
    phone.pressCell(restart);
  }
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(label(other), "Jotter");
  EXPECT_EQ(names(), Labels{"Notes"});
}

TEST_P(RenamedLabels, OfferARestartWhereLabelsNeedIt) {
  openList("Renamed Labels");
  EXPECT_EQ(rows(), isOld() ? Labels{restart} : Labels());
}

TEST_P(RenamedLabels, CanBeGivenAgainAfterwards) {
  phone.rename(app, "Mine");
  openList("Renamed Labels").deleteCell("Test App");
  phone.rename(app, "Again");
  EXPECT_EQ(label(), "Again");
  phone.closePane();
  openList("Renamed Labels");
  EXPECT_EQ(shown("Test App"), "Again");
}

TEST_P(RenamedLabels, ComeOffWithoutChangingWhetherLabelsAreHidden) {
  for (const bool hidden : {false, true}) {
    phone.rename(app, "Mine");
    open().setCell("Hide Labels", hidden ? "on" : "off").pressCell("Renamed Labels").deleteCell("Test App");
    EXPECT_EQ(labelsAreHidden(), hidden);
    phone.home();
    EXPECT_EQ(labelsAreHidden(), hidden);
  }
}

TEST_P(RenamedLabels, StayWhenTheyCannotBeTakenAway) {
  phone.rename(app, "Mine");
  openList("Renamed Labels");
  fs::permissions(file().parent_path(), fs::perms(0555));
  phone.deleteCell("Test App");
  EXPECT_EQ(names(), Labels{"Test App"});
  EXPECT_EQ(label(), "Mine");
  EXPECT_EQ(held().at(app), "Mine");
}

TEST_P(RenamedLabels, ManyAreListedAndTakenAway) {
  Json many = Json::object();
  for (int i = 0; i < 300; ++i) many["com.example.application" + std::to_string(i + 100)] = "Name " + std::to_string(i);
  sim::PropertyList(many).write(file());
  openList("Renamed Labels");
  EXPECT_EQ(names().size(), 300U);
  phone.deleteCell("com.example.application100").deleteCell("com.example.application399");
  EXPECT_EQ(names().size(), 298U);
  EXPECT_EQ(stored().size(), 298U);
}

// Muted applications

TEST_P(MutedApplications, AreListedWithTheEndOfTheirMuting) {
  phone.openMenu(app).tap("Mute Notification").tap("For 1 Hour");
  phone.advance(1).swipeUp(other).tap("Mute Notification").tap("Forever");

  const auto all = muted();
  EXPECT_EQ(all.at("Notes"), "Forever");
  EXPECT_EQ(all.at("Test App").substr(0, 11), "2023-11-14 ");
  EXPECT_EQ(all.size(), 2U);
}

TEST_P(MutedApplications, AreExplainedWhenThereAreNone) {
  openList("Muted Applications");
  EXPECT_EQ(rows(), Labels());
  EXPECT_NE(footer().find("No application is muted"), std::string::npos) << footer();
}

TEST_P(MutedApplications, CannotBeSwipedAway) {
  store({{{"id", app}, {"timeStamp", -1}}});
  openList("Muted Applications");
  const auto page = phone.pane();
  EXPECT_FALSE(page.cell("Test App")->deletable);
  EXPECT_THROW(phone.deleteCell("Test App"), sim::BadInput);
  EXPECT_TRUE(sim::readFile(list()).value().find(app) != std::string::npos);
}

TEST_P(MutedApplications, WhoseTimeHasPassedAreLeftOut) {
  store({{{"id", app}, {"timeStamp", start - 1}},
         {{"id", other}, {"timeStamp", start + 60}},
         {{"id", "com.example.weather"}}});
  EXPECT_EQ(muted().size(), 1U);
  EXPECT_TRUE(muted().contains("Notes"));
}

TEST_P(MutedApplications, OfAListThatHoldsAnythingAreThoseThatMakeSense) {
  for (const std::string content : {"", "garbage \x01\xff", "<plist><array/></plist>", "bplist00"}) {
    sim::writeFile(list(), content);
    EXPECT_TRUE(muted().empty()) << content;
  }
  for (const std::string entries : {"<string>no list</string>", "<dict><key>id</key><string>a</string></dict>",
                                    "<array><string>a</string><integer>1</integer><array/><data>AA==</data></array>"}) {
    storeXml("<dict><key>entries</key>" + entries + "</dict>");
    EXPECT_TRUE(muted().empty()) << entries;
  }
  storeXml(
      "<dict><key>entries</key><array>"
      "<dict><key>id</key><integer>1</integer><key>timeStamp</key><integer>-1</integer></dict>"
      "<dict><key>id</key><string>com.example.a</string><key>timeStamp</key><array/></dict>"
      "<dict><key>id</key><string>com.example.b</string><key>timeStamp</key><real>nan</real></dict>"
      "<dict><key>id</key><string></string><key>timeStamp</key><integer>-1</integer></dict>"
      "<dict><key>id</key><string>com.example.c</string><key>timeStamp</key><string>-1</string></dict>"
      "</array></dict>");
  EXPECT_EQ(muted(), (std::map<std::string, std::string>{{"com.example.c", "Forever"}}));
}
