// The settings file as the library reads it, value by value. A small program of ours maps the settings room
// alone into a process like the home screen's and prints what it holds.
#include "tests/support/phone.hpp"

namespace {

using Json = nlohmann::ordered_json;

const std::string file = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.plist";

const Json defaults{{"enabled", true},     {"direction", 0},         {"slideValue", 1.0},      {"useForce", false},
                    {"useEditing", false}, {"useRename", true},      {"useBadge", true},       {"useCustom", true},
                    {"useCopyID", true},   {"useCopySchemes", true}, {"openFilza", true},      {"useCache", true},
                    {"useBackUp", true},   {"useRestore", true},     {"delBackUp", true},      {"useReset", true},
                    {"useMute", true},     {"openApp", true},        {"showSize", true},       {"useText", false},
                    {"hideLabel", false},  {"disableType", 2},       {"muteLockScreen", true}, {"muteBanners", true}};

class Settings : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  sim::Device device{folder.path()};

  void store(const Json& content) { sim::PropertyList(content).write((device.root() / file.substr(1))); }
  Json loaded() { return Json::parse(test::runInside(device, "settings-probe")); }
  Json loaded(const Json& content) {
    store(content);
    return loaded();
  }
  static Json with(std::initializer_list<std::pair<std::string, Json>> changes) {
    Json expected = defaults;
    for (const auto& [key, value] : changes) expected[key] = value;
    return expected;
  }
};

}  // namespace

TEST_F(Settings, WithoutAFileHaveTheirDefaults) { EXPECT_EQ(loaded(), defaults); }

TEST_F(Settings, EveryFlagIsReadFromBothSides) {
  for (const bool value : {true, false}) {
    Json content;
    Json expected = defaults;
    for (const auto& [key, standard] : defaults.items())
      if (standard.is_boolean() && key.rfind("mute", 0) != 0) content[key] = expected[key] = value;
    EXPECT_EQ(loaded(content), expected);
  }
}

TEST_F(Settings, NumbersConvert) {
  EXPECT_EQ(loaded({{"enabled", 0}, {"useForce", 7}, {"useText", 0.5}, {"direction", 1.9}, {"slideValue", 3}}),
            with({{"enabled", false}, {"useForce", true}, {"useText", true}, {"direction", 1}, {"slideValue", 3.0}}));
}

TEST_F(Settings, TextsConvert) {
  EXPECT_EQ(loaded({{"enabled", "NO"},
                    {"useForce", "YES"},
                    {"hideLabel", "1"},
                    {"direction", "1"},
                    {"slideValue", "2.5"},
                    {"disableType", "nonsense"}}),
            with({{"enabled", false},
                  {"useForce", true},
                  {"hideLabel", true},
                  {"direction", 1},
                  {"slideValue", 2.5},
                  {"disableType", 0},
                  {"muteLockScreen", false}}));
}

TEST_F(Settings, OtherKindsCountAsAbsent) {
  for (const Json& value : {Json::array({1, 2}), Json{{"a", 1}}, Json::binary({1, 2, 3})}) {
    Json content;
    for (const auto& [key, standard] : defaults.items()) content[key] = value;
    EXPECT_EQ(loaded(content), defaults);
  }
}

TEST_F(Settings, DatesCountAsAbsent) {
  std::string content = R"(<?xml version="1.0"?><plist version="1.0"><dict>)";
  for (const auto& [key, standard] : defaults.items())
    content += "<key>" + key + "</key><date>2024-01-01T00:00:00Z</date>";
  sim::writeFile((device.root() / file.substr(1)), content + "</dict></plist>");
  EXPECT_EQ(loaded(), defaults);
}

TEST_F(Settings, FilesThatHoldNoDictionaryCountAsMissing) {
  for (const std::string content : {"", "garbage \x01\xff", "<plist><array><string>a</string></array></plist>",
                                    "<plist><dict><key>enabled</key>", "bplist00", "{ enabled = 0"}) {
    sim::writeFile((device.root() / file.substr(1)), content);
    EXPECT_EQ(loaded(), defaults) << content;
  }
}

TEST_F(Settings, AFolderInTheFilesPlaceCountsAsMissing) {
  std::filesystem::create_directories((device.root() / file.substr(1)));
  EXPECT_EQ(loaded(), defaults);
}

TEST_F(Settings, DisableTypeDecidesWhatMutingKeepsAway) {
  EXPECT_EQ(loaded({{"disableType", 0}}), with({{"disableType", 0}, {"muteLockScreen", false}}));
  EXPECT_EQ(loaded({{"disableType", 1}}), with({{"disableType", 1}, {"muteBanners", false}}));
  EXPECT_EQ(loaded({{"disableType", 5}}), with({{"disableType", 5}}));
}

TEST_F(Settings, RenamedLabelsDoNotDisturb) {
  EXPECT_EQ(loaded({{"com.example.notes", "My Notes"}, {"com.example.x", {{"odd", 1}}}, {"hideLabel", true}}),
            with({{"hideLabel", true}}));
}

TEST_F(Settings, AreReadFromABinaryFileToo) {
  sim::PropertyList(Json{{"useForce", true}})
      .write((device.root() / file.substr(1)), sim::PropertyList::Format::binary);
  EXPECT_EQ(loaded(), with({{"useForce", true}}));
}

namespace {
class SettingsReload : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, SettingsReload, test::bothGenerations, test::generationName);

TEST_P(SettingsReload, HappensWhenTheSettingsPaneSaysSo) {
  phone.screen();
  sim::PropertyList(Json{{"enabled", false}}).write(phone.path(file));
  phone.swipeUp("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
  phone.tap("Cancel");
  phone.advance(1);
  phone.post("com.morvanel.sprigdial.preferencechanged");
  phone.swipeUp("com.example.notes");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(SettingsReload, GivesAKeyThatIsGoneItsDefaultBack) {
  phone.screen();
  phone.settings({"enabled=false"});
  phone.settings({"enabled="});
  phone.swipeUp("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(SettingsReload, AWrongFileBringsNothingDown) {
  for (const std::string content : {"", "garbage", "<plist><array/></plist>"}) {
    sim::writeFile(phone.path(file), content);
    phone.post("com.morvanel.sprigdial.preferencechanged");
    phone.swipeUp("com.example.notes");
    EXPECT_TRUE(phone.showsAlert()) << content;
    phone.tap("Cancel");
    phone.advance(1);
  }
}

TEST_P(SettingsReload, IsForTheStartToo) {
  sim::PropertyList(Json{{"direction", 1}}).write(phone.path(file));
  phone.swipe("com.example.notes", {{0, 20}});
  EXPECT_TRUE(phone.showsAlert());
}
