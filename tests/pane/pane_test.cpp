// What the pane writes, whom it tells, and what it makes of files that hold anything.
#include <algorithm>
#include <cmath>

#include "tests/pane/pane.hpp"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using test::app;
using test::domain;
using test::other;

const std::string reload = domain + ".preferencechanged";
const std::string updateLabels = domain + ".iconlable";
constexpr double delay = 10;

class PaneFile : public test::Pane {
 protected:
  void TearDown() override {
    // What was locked has to be removed at the end.
    fs::permissions(file().parent_path(), fs::perms::owner_all);
  }
  void store(const Json& content) const { sim::PropertyList(content).write(file()); }
  void storeXml(const std::string& entries) const {
    sim::writeFile(
        file(), R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" + entries + "</dict></plist>");
  }
  std::string bytes() const { return sim::readFile(file()).value_or("no file"); }
  // The labels of the first page and what they show.
  std::map<std::string, std::string> page() {
    std::map<std::string, std::string> all;
    for (const auto& cell : phone.pane().cells)
      if (cell.kind == "switch" || cell.kind == "segment" || cell.kind == "slider") all[cell.label] = cell.value;
    return all;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, PaneFile, test::bothGenerations, test::generationName);

// What is written

TEST_P(PaneFile, IsNotWrittenByLooking) {
  open().pressCell("Renamed Labels").paneBack().pressCell("Muted Applications").closePane();
  EXPECT_FALSE(fs::exists(file()));
  EXPECT_EQ(held(), nullptr);
}

TEST_P(PaneFile, GetsTheOneSettingAtOnceAndSoDoesTheDaemon) {
  open().setCell("Swipe Direction", "Down");
  EXPECT_EQ(stored(), Json({{"direction", 1}}));
  EXPECT_EQ(held(), Json({{"direction", 1}}));
  phone.setCell("Enabled", "off").setCell("Swipe Distance", "2.5");
  EXPECT_EQ(nlohmann::json(stored()), nlohmann::json({{"direction", 1}, {"enabled", false}, {"slideValue", 2.5}}));
  EXPECT_EQ(nlohmann::json(held()), nlohmann::json({{"direction", 1}, {"enabled", false}, {"slideValue", 2.5}}));
}

TEST_P(PaneFile, KeepsEverythingElse) {
  const Json before{{"useMute", false},
                    {app, "Label"},
                    {"com.example.odd", {1, "two", {{"three", 3.5}}}},
                    {"blob", Json::binary({1, 2, 3})},
                    {"e\u0301 🗝", "👩‍👩‍👧‍👦"},
                    {"disableType", "1"}};
  store(before);
  open().setCell("Show Size", "off");
  nlohmann::json expected = before;
  expected["showSize"] = false;
  EXPECT_EQ(nlohmann::json(stored()), expected);
  phone.flush();
  EXPECT_EQ(nlohmann::json(stored()), expected);
}

TEST_P(PaneFile, IsReplacedWhole) {
  store({{"useMute", false}});
  fs::create_hard_link(file(), file().string() + ".before");
  open().setCell("Show Size", "off");
  EXPECT_EQ(sim::PropertyList::read(file().string() + ".before")->value(), Json({{"useMute", false}}));
  fs::remove(file().string() + ".before");
}

// Who is told

TEST_P(PaneFile, TellsTheHomeScreenToReadItAfterItIsWritten) {
  open();
  const auto told = [&](const std::string& label, const std::string& value) {
    const auto before = phone.askPane("darwin-posts").at("entries").size();
    phone.setCell(label, value);
    const Json all = phone.askPane("darwin-posts").at("entries");
    return std::vector<std::string>(all.begin() + static_cast<std::ptrdiff_t>(before), all.end());
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(told("Enabled", "off"), Names{reload});
  EXPECT_EQ(told("Swipe Direction", "Off"), Names{reload});
  EXPECT_EQ(told("Swipe Distance", "3"), Names{reload});
  EXPECT_EQ(told("Hide Labels", "on"), (Names{updateLabels, reload}));
  EXPECT_EQ(told("Hide Labels", "off"), (Names{updateLabels, reload}));
}

// Labels

TEST_P(PaneFile, HidesLabelsAtOnceAndTheyStayHidden) {
  for (const bool hidden : {true, false, true}) {
    open().setCell("Hide Labels", hidden ? "on" : "off");
    EXPECT_EQ(labelsAreHidden(), hidden);
    for (const auto& goOn : std::vector<std::function<void()>>{
             [&] { phone.home(); }, [&] { phone.lock().unlock(); }, [&] { phone.flush(); },
             [&] { phone.advance(2 * delay); }, [&] { phone.post(reload); }, [&] { phone.rescan(); },
             [&] { phone.respring(); }, [&] { phone.crash(); }}) {
      goOn();
      EXPECT_EQ(labelsAreHidden(), hidden);
    }
  }
}

TEST_P(PaneFile, LeavesLabelsAsTheyAreWhenAnythingElseIsSet) {
  for (const bool hidden : {false, true}) {
    open().setCell("Hide Labels", hidden ? "on" : "off");
    phone.setCell("Show Size", hidden ? "on" : "off").setCell("Swipe Distance", hidden ? "2" : "3");
    EXPECT_EQ(labelsAreHidden(), hidden);
    phone.home();
    EXPECT_EQ(labelsAreHidden(), hidden);
  }
}

// Names and settings together

TEST_P(PaneFile, LosesNeitherNamesNorSettingsInAnyOrderWhenTheDaemonWritesInBetween) {
  open().setCell("Text Badges", "on");
  phone.rename(other, "Kept");
  for (int round = 0; round < 16; ++round) {
    SCOPED_TRACE(round);
    const std::string name = "Name " + std::to_string(round);
    const std::string distance = std::to_string(round + 2);
    const auto flushIf = [&](int bit) {
      if ((round & bit) != 0) phone.flush();
    };
    const auto rename = [&] {
      // The distance is more than a swipe of a person is long, in the end.
      phone.openMenuInSpite(app).tap("Rename App").advance(1).type(name).tap("Apply");
      EXPECT_EQ(label(), name);
    };
    const auto set = [&] { phone.setCell("Swipe Distance", distance); };
    flushIf(1);
    if ((round & 8) != 0) rename();
    else set();
    flushIf(2);
    if ((round & 8) != 0) set();
    else rename();
    flushIf(4);
    const nlohmann::json expected{{app, name}, {other, "Kept"}, {"slideValue", round + 2.0}, {"useText", true}};
    EXPECT_EQ(nlohmann::json(stored()), expected);
    phone.advance(delay);
    EXPECT_EQ(nlohmann::json(stored()), expected);
    EXPECT_EQ(nlohmann::json(held()), expected);
  }
  phone.respring();
  EXPECT_EQ(label(), "Name 15");
  EXPECT_EQ(label(other), "Kept");
}

// What is shown

TEST_P(PaneFile, IsShownAsTheHomeScreenReadsIt) {
  store({{"enabled", "NO"},
         {"useForce", 7},
         {"useText", "yes"},
         {"direction", "1"},
         {"slideValue", "2.5"},
         {"disableType", 1.9},
         {"hideLabel", 0}});
  open();
  const auto seen = page();
  EXPECT_EQ(seen.at("Enabled"), "off");
  EXPECT_EQ(seen.at("Quick-Action List"), "on");
  EXPECT_EQ(seen.at("Text Badges"), "on");
  EXPECT_EQ(seen.at("Swipe Direction"), "Down");
  EXPECT_EQ(seen.at("Swipe Distance"), "2.5");
  EXPECT_EQ(seen.at("Muting"), "Lock Screen");
  EXPECT_EQ(seen.at("Hide Labels"), "off");
}

TEST_P(PaneFile, WithNumbersThatMeanNothingIsShownAsWhatTheHomeScreenTakesThemFor) {
  for (const Json& value : {Json(3), Json(-1), Json(2147483647), Json(77.7), Json("9")}) {
    store({{"direction", value}, {"disableType", value}});
    open();
    EXPECT_EQ(shown("Swipe Direction"), "Off") << value;
    EXPECT_EQ(shown("Muting"), "Both") << value;
    phone.closePane();
  }
}

TEST_P(PaneFile, WithADistanceThatTheSliderLacksIsShownAtItsEnd) {
  const std::map<std::string, std::string> shownFor{{"-5", "1"},  {"0", "1"},    {"1000", "30"},
                                                    {"nan", "1"}, {"inf", "30"}, {"-inf", "1"}};
  for (const auto& [value, expected] : shownFor) {
    storeXml("<key>slideValue</key><real>" + value + "</real>");
    open();
    EXPECT_EQ(shown("Swipe Distance"), expected) << value;
    phone.closePane();
  }
}

// Files that hold anything

TEST_P(PaneFile, ThatHoldsNoSettingsShowsDefaultsAndBeginsAnew) {
  open();
  const auto defaults = page();
  phone.closePane();
  EXPECT_EQ(defaults.size(), 22U);
  for (const std::string content : {"", "garbage \x01\xff", "<plist><array><string>a</string></array></plist>",
                                    "<plist><dict><key>enabled</key>", "bplist00", "{ enabled = 0"}) {
    sim::writeFile(file(), content);
    open();
    EXPECT_EQ(page(), defaults) << content;
    phone.setCell("Show Size", "off");
    EXPECT_EQ(shown("Show Size"), "off") << content;
    EXPECT_EQ(stored(), Json({{"showSize", false}})) << content;
    phone.closePane();
  }
}

TEST_P(PaneFile, WithValuesOfOtherKindsShowsDefaults) {
  open();
  const auto defaults = page();
  phone.closePane();
  const std::vector<std::string> keys{
      "enabled",   "direction",      "slideValue", "useForce", "useEditing", "useRename",  "useBadge",  "useCustom",
      "useCopyID", "useCopySchemes", "openFilza",  "useCache", "useBackUp",  "useRestore", "delBackUp", "useReset",
      "useMute",   "openApp",        "showSize",   "useText",  "hideLabel",  "disableType"};
  for (const std::string value :
       {"<array><integer>1</integer></array>", "<dict><key>a</key><integer>1</integer></dict>", "<data>AAEC</data>",
        "<date>2024-01-01T00:00:00Z</date>"}) {
    std::string entries;
    for (const auto& key : keys) entries += "<key>" + key + "</key>" + value;
    storeXml(entries);
    open();
    EXPECT_EQ(page(), defaults) << value;
    phone.setCell("Hide Labels", "on");
    EXPECT_TRUE(labelsAreHidden());
    phone.setCell("Hide Labels", "off");
    EXPECT_FALSE(labelsAreHidden());
    EXPECT_EQ(stored().size(), keys.size()) << value;
    phone.closePane();
  }
}

TEST_P(PaneFile, ThatIsNotWritableButReplaceableIsReplaced) {
  store({{app, "Label"}});
  fs::permissions(file(), fs::perms::owner_read);
  open().setCell("Show Size", "off");
  EXPECT_EQ(nlohmann::json(stored()), nlohmann::json({{app, "Label"}, {"showSize", false}}));
}

// Root reads and writes everything.
TEST_P(PaneFile, InAFolderThatIsLockedStaysAndTheCellShowsWhatIsInForce) {
  store({{app, "Label"}, {"hideLabel", true}});
  open();
  EXPECT_TRUE(labelsAreHidden());
  fs::permissions(file().parent_path(), fs::perms(0555));
  const std::string before = bytes();
  phone.setCell("Hide Labels", "off");
  EXPECT_EQ(shown("Hide Labels"), "on");
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(held(), nullptr);
  EXPECT_TRUE(labelsAreHidden());
  phone.setCell("Show Size", "off");
  EXPECT_EQ(shown("Show Size"), "on");
  fs::permissions(file().parent_path(), fs::perms::owner_all);
  phone.setCell("Hide Labels", "off");
  EXPECT_FALSE(labelsAreHidden());
  EXPECT_EQ(label(), "Label");
}

TEST_P(PaneFile, ThatCannotBeReadMayHoldEverythingAndIsLeftAlone) {
  store({{app, "Label"}});
  open();
  fs::permissions(file(), fs::perms::none);
  phone.setCell("Show Size", "off");
  EXPECT_EQ(shown("Show Size"), "on");
  fs::permissions(file(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(stored(), Json({{app, "Label"}}));
  EXPECT_EQ(held(), nullptr);
}

TEST_P(PaneFile, WhosePlaceAFolderHasIsLeftAlone) {
  fs::create_directories(file() / "inside");
  open().setCell("Show Size", "off");
  EXPECT_EQ(shown("Show Size"), "on");
  EXPECT_TRUE(fs::exists(file() / "inside"));
  phone.pressCell("Renamed Labels");
  EXPECT_EQ(phone.pane().cell(app), nullptr);
}

// A bundle whose list holds anything

TEST_P(PaneFile, IsLeftAloneByAPaneWithoutAList) {
  store({{app, "Label"}, {"enabled", "YES"}});
  const auto list = phone.path("/Library/PreferenceBundles/SprigdialSettings.bundle/Root.plist");
  for (const std::string content : {"", "garbage", "<plist><array/></plist>", "<plist><dict/></plist>"}) {
    sim::writeFile(list, content);
    open();
    EXPECT_EQ(rows(), std::vector<std::string>()) << content;
    phone.closePane();
  }
  fs::remove(list);
  open();
  EXPECT_EQ(rows(), std::vector<std::string>());
  EXPECT_EQ(nlohmann::json(stored()), nlohmann::json({{app, "Label"}, {"enabled", "YES"}}));
}

TEST_P(PaneFile, IsReadAndWrittenByCellsWithPropertiesOfOtherKinds) {
  const auto cell = [](const std::string& kind, const std::string& label, Json others) {
    others["cell"] = kind;
    others["label"] = label;
    return others;
  };
  const Json odd = Json::array({1, 2});
  const Json items = Json::array_t{cell("PSSwitchCell", "No key", {{"default", true}}),
                                   cell("PSSwitchCell", "Odd key", {{"key", 5}, {"default", true}}),
                                   cell("PSSwitchCell", "Odd default", {{"key", "one"}, {"default", odd}}),
                                   cell("PSSwitchCell", "No default", {{"key", "two"}}),
                                   cell("PSSliderCell", "No ends", {{"key", "three"}, {"default", 0.5}}),
                                   cell("PSTitleValueCell", "Text", {{"key", "four"}, {"default", "Something"}})};
  sim::PropertyList(Json{{"items", items}})
      .write(phone.path("/Library/PreferenceBundles/SprigdialSettings.bundle/Root.plist"));
  open();
  for (const std::string label : {"No key", "Odd key", "Odd default", "No default"})
    EXPECT_EQ(shown(label), "off") << label;
  EXPECT_EQ(shown("Text"), "Something");
  phone.setCell("No key", "on").setCell("Odd key", "on").setCell("Odd default", "on");
  EXPECT_EQ(stored(), Json({{"one", true}}));
}

// A pane on its own

TEST_P(PaneFile, IsThePanesWhenTheHomeScreenHasCrashedToo) {
  open();
  phone.crash().setCell("Hide Labels", "on");
  EXPECT_TRUE(labelsAreHidden());
  phone.crashPane();
  phone.home();
  EXPECT_TRUE(labelsAreHidden());
  open();
  EXPECT_EQ(shown("Hide Labels"), "on");
}
