// Renamed labels and a settings file that does not hold what it should.
#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

const std::string app = "com.example.test";
const std::string onlyTheName = "{\n  \"com.example.test\": \"New\"\n}";

class DamagedSettings : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }
  void TearDown() override {
    // What was locked has to be removed at the end.
    fs::permissions(folder(), fs::perms::owner_all);
  }
  fs::path folder() const { return phone.settingsFile().parent_path(); }
  void expectSystemNames() {
    const auto screen = phone.launch(app).home().screen();
    EXPECT_EQ(screen.icon(app)->label, "Test App");
    EXPECT_EQ(screen.icon(app)->spoken, "Test App");
    EXPECT_EQ(screen.switcher, std::vector<std::string>{"Test App"});
    phone.openMenu();
    EXPECT_EQ(phone.alert().title, "Test App");
    phone.tap("Cancel").advance(1);
  }
  std::string content() { return sim::PropertyList::read(phone.settingsFile()).value().readable(); }
};

class DamagedFile : public testing::TestWithParam<std::tuple<sim::Generation, std::string>> {
 protected:
  test::Phone phone{std::get<0>(GetParam())};
};

const std::map<std::string, std::string> damagedFiles{
    {"Empty", ""},
    {"Nonsense", "this is no property list\n"},
    {"Unfinished", "<?xml version=\"1.0\"?>\n<plist version=\"1.0\"><dict><key>com.example.test</key><string>Hal"},
    {"ArrayOnTop", "<plist version=\"1.0\"><array><string>com.example.test</string></array></plist>"},
    {"TextOnTop", "<plist version=\"1.0\"><string>com.example.test</string></plist>"},
    {"BinaryMarkAlone", "bplist00"},
    {"BinaryRubbish",
     "bplist00\xd1\x01\x02\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff"
     "\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff"},
    {"NoText", "\xff\xfe\xfd\xfc\xfb\xfa\xf9\xf8"},
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, DamagedSettings, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, DamagedFile, testing::Combine(test::bothGenerations, testing::ValuesIn([] {
                                                           std::vector<std::string> names;
                                                           for (const auto& [name, bytes] : damagedFiles)
                                                             names.push_back(name);
                                                           return names;
                                                         }())),
                         [](const auto& info) {
                           return std::get<1>(info.param) +
                                  (std::get<0>(info.param) == sim::Generation::old ? "Old" : "New");
                         });

TEST_P(DamagedSettings, WhatIsNoTextIsNoName) {
  for (const Json& value :
       {Json(7), Json(1.5), Json(true), Json::array({"a", "b"}), Json{{"name", "x"}}, Json::binary({1, 2, 3})}) {
    phone.storeFromOutside(app, value);
    expectSystemNames();
    phone.respring();
    expectSystemNames();
  }
}

TEST_P(DamagedSettings, ADateIsNoName) {
  sim::writeFile(phone.settingsFile(),
                 "<plist version=\"1.0\"><dict><key>com.example.test</key>"
                 "<date>2020-01-01T00:00:00Z</date></dict></plist>");
  expectSystemNames();
}

TEST_P(DamagedSettings, WhatIsNoNameIsReplacedByOne) {
  phone.storeFromOutside(app, Json::array({"a", "b"}));
  phone.storeFromOutside("kept", Json::array({"c"}));
  phone.rename(app, "New");
  EXPECT_EQ(phone.icon(app).label, "New");
  EXPECT_EQ(content(), "{\n  \"com.example.test\": \"New\"\n  \"kept\": [\n    \"c\"\n  ]\n}");
}

TEST_P(DamagedFile, GivesNoNamesAndIsReplacedByTheFirst) {
  phone.install({});
  sim::writeFile(phone.settingsFile(), damagedFiles.at(std::get<1>(GetParam())));
  EXPECT_EQ(phone.icon(app).label, "Test App");
  EXPECT_EQ(phone.icon(app).spoken, "Test App");
  phone.rename(app, "New");
  EXPECT_EQ(phone.icon(app).label, "New");
  EXPECT_EQ(sim::PropertyList::read(phone.settingsFile()).value().readable(), onlyTheName);
}

TEST_P(DamagedSettings, AnUnreadableFileIsReplacedByTheFirstName) {
  phone.storeFromOutside(app, "Secret");
  fs::permissions(phone.settingsFile(), fs::perms::owner_write);
  expectSystemNames();
  phone.rename(app, "New");
  EXPECT_EQ(content(), onlyTheName);
  EXPECT_EQ(phone.icon(app).label, "Test App") << "the new file has the old one's permissions";
  fs::permissions(phone.settingsFile(), fs::perms::owner_all);
  EXPECT_EQ(phone.icon(app).spoken, "New");
}

TEST_P(DamagedSettings, AFolderInTheFilesPlaceStaysAndNothingIsStored) {
  fs::create_directories(phone.settingsFile() / "inside");
  expectSystemNames();
  const auto before = test::filesBelow(folder());
  phone.rename(app, "New");
  EXPECT_EQ(test::filesBelow(folder()), before);
  EXPECT_TRUE(phone.screen().windows.empty());
  expectSystemNames();
}

TEST_P(DamagedSettings, AFileThatCannotBeWrittenStaysAsItIs) {
  phone.storeFromOutside(app, "Old");
  ASSERT_EQ(phone.icon(app).label, "Old");
  const auto before = test::filesBelow(folder());
  fs::permissions(folder(), fs::perms::owner_read | fs::perms::owner_exec);
  phone.rename(app, "New");
  EXPECT_EQ(phone.icon(app).label, "Old");
  EXPECT_EQ(phone.icon(app).spoken, "Old");
  EXPECT_TRUE(phone.screen().windows.empty());
  EXPECT_EQ(phone.live("RenameIcon"), 0);
  EXPECT_EQ(test::filesBelow(folder()), before);
  fs::permissions(folder(), fs::perms::owner_all);
  phone.rename(app, "New");
  EXPECT_EQ(phone.icon(app).label, "New");
}

TEST_P(DamagedSettings, AMissingFolderStoresNothing) {
  expectSystemNames();
  fs::rename(folder(), phone.path("/var/mobile/elsewhere"));
  phone.rename(app, "New");
  EXPECT_EQ(phone.icon(app).label, "Test App");
  EXPECT_FALSE(fs::exists(folder()));
  fs::rename(phone.path("/var/mobile/elsewhere"), folder());
}
