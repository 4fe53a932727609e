// The preferences daemon and the add-on: both write the settings file, each without asking the other.
#include <set>
#include <sstream>

#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";
const std::string domain = "com.morvanel.sprigdial";
constexpr double delay = 10;

class Preferences : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }
  void TearDown() override {
    // What was locked has to be removed at the end.
    fs::permissions(folder(), fs::perms::owner_all);
  }
  fs::path folder() const { return phone.settingsFile().parent_path(); }
  std::string label() { return phone.icon(app).label; }
  /// What the file holds, in the order of the keys: the daemon writes them as they come.
  std::string file() const {
    const auto content = sim::PropertyList::read(phone.settingsFile());
    return content ? inOrder(content->readable()) : "none";
  }
  static std::string inOrder(const std::string& list) {
    std::istringstream text(list);
    std::multiset<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.insert(line);
    // Braces come after what is indented, and the opening one is to lead.
    std::string ordered = list == "{}" ? "" : "{";
    if (!ordered.empty()) lines.erase("{");
    for (const std::string& line : lines) ordered += (ordered.empty() ? "" : "\n") + line;
    return ordered;
  }
  std::string held() {
    const auto values = phone.preferences(domain);
    return values ? values->readable() : "none";
  }
  /// The add-on writes XML, the daemon binary.
  bool theDaemonWroteLast() const { return sim::readFile(phone.settingsFile()).value_or("").starts_with("bplist00"); }
  static bool has(const std::string& list, const std::string& key, const std::string& value) {
    return list.find("\"" + key + "\": " + value + "\n") != std::string::npos;
  }
  bool opensAMenu() {
    phone.advance(1);
    phone.openMenu(other);
    if (!phone.showsAlert()) return false;
    phone.tap("Cancel").advance(1);
    return true;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Preferences, test::bothGenerations, test::generationName);

// When the daemon reads and writes

TEST_P(Preferences, AreReadAtTheirFirstUseAndWrittenAWhileAfterTheFirstChange) {
  phone.settings({"disableType=0"});
  EXPECT_EQ(held(), "none");
  phone.rename(app, "One");
  EXPECT_EQ(held(), "{\n  \"com.example.test\": \"One\"\n  \"disableType\": 0\n}");
  phone.advance(delay / 2);
  phone.rename(other, "Two");
  phone.advance(delay / 2 - 4);
  EXPECT_FALSE(theDaemonWroteLast());
  phone.advance(4);
  EXPECT_TRUE(theDaemonWroteLast());
  EXPECT_EQ(file(), "{\n  \"com.example.notes\": \"Two\"\n  \"com.example.test\": \"One\"\n  \"disableType\": 0\n}");
  const auto written = fs::last_write_time(phone.settingsFile());
  phone.advance(10 * delay).flush();
  EXPECT_EQ(fs::last_write_time(phone.settingsFile()), written) << "nothing has changed since";
}

TEST_P(Preferences, OfEveryKindAreWrittenAsTheyWereRead) {
  const std::string kinds =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>"
      "<key>blob</key><data>AAECA/8=</data><key>date</key><date>2020-02-29T12:34:56Z</date>"
      "<key>big</key><integer>9223372036854775807</integer><key>small</key><integer>-9223372036854775808</integer>"
      "<key>byte</key><integer>255</integer><key>minus</key><integer>-1</integer>"
      "<key>list</key><array><true/><false/><real>0.1</real><string/><array/><dict/></array>"
      "<key>kéy 🗝</key><string>e\u0301 👩‍👩‍👧‍👦 \U00010000 שלום</string></dict></plist>\n";
  sim::writeFile(phone.settingsFile(), kinds);
  phone.rename(app, "One");
  const std::string before = file();
  phone.flush();
  EXPECT_TRUE(theDaemonWroteLast());
  EXPECT_EQ(file(), before);
  EXPECT_TRUE(has(before, app, "\"One\""));
  EXPECT_TRUE(has(before, "small", "-9223372036854775808"));
}

TEST_P(Preferences, AreWrittenIntoANewFileForItsOwnerAlone) {
  phone.settingsThroughDaemon({"disableType=1"}).flush();
  EXPECT_EQ(fs::status(phone.settingsFile()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  fs::permissions(phone.settingsFile(), fs::perms(0640));
  phone.settingsThroughDaemon({"disableType=0"}).flush();
  EXPECT_EQ(file(), "{\n  \"disableType\": 0\n}");
  EXPECT_EQ(fs::status(phone.settingsFile()).permissions(), fs::perms(0640));
  EXPECT_EQ(test::filesBelow(folder()).size(), 2U) << "the mute list, and nothing that was only on the way";
}

// The add-on is told of a change before the file has it: with such a pane a phone's owner waits, too.
TEST_P(Preferences, SetThroughTheDaemonReachTheAddOnOnceTheyAreInTheFile) {
  phone.settingsThroughDaemon({"enabled=false"});
  EXPECT_EQ(held(), "{\n  \"enabled\": false\n}");
  EXPECT_EQ(file(), "none");
  EXPECT_TRUE(opensAMenu());
  phone.flush().post(domain + ".preferencechanged");
  EXPECT_EQ(file(), "{\n  \"enabled\": false\n}");
  EXPECT_FALSE(opensAMenu());
  phone.settingsThroughDaemon({"enabled="}).advance(delay).post(domain + ".preferencechanged");
  EXPECT_EQ(file(), "{}");
  EXPECT_TRUE(opensAMenu());
}

// Names and settings together

class InEveryOrder : public Preferences {
 protected:
  /// Both changes, in both orders, with the daemon writing before, between and after them, or not. Nothing that was
  /// there before goes, at any time.
  void expectBothToStay(const std::function<void(const std::string& setting)>& changeSetting) {
    phone.settings({"useText=true"});
    phone.rename(other, "Kept");
    for (int round = 0; round < 16; ++round) {
      SCOPED_TRACE(round);
      const std::string name = "Name " + std::to_string(round);
      const std::string number = std::to_string(round + 100);
      const auto flushIf = [&](int bit) {
        if ((round & bit) != 0) phone.flush();
      };
      const auto rename = [&] {
        phone.rename(app, name);
        EXPECT_EQ(label(), name);
      };
      flushIf(1);
      if ((round & 8) != 0) rename();
      else changeSetting("disableType=" + number);
      flushIf(2);
      if ((round & 8) != 0) changeSetting("disableType=" + number);
      else rename();
      flushIf(4);
      EXPECT_TRUE(has(file(), app, '"' + name + '"'));
      EXPECT_TRUE(has(file(), other, "\"Kept\""));
      EXPECT_TRUE(has(file(), "useText", "true"));
      phone.advance(delay);
      for (const std::string& list : {held(), file()}) {
        EXPECT_TRUE(has(list, app, '"' + name + '"')) << list;
        EXPECT_TRUE(has(list, "disableType", number)) << list;
        EXPECT_TRUE(has(list, other, "\"Kept\"")) << list;
        EXPECT_TRUE(has(list, "useText", "true")) << list;
      }
    }
    phone.respring();
    EXPECT_EQ(label(), "Name 15");
  }
};
INSTANTIATE_TEST_SUITE_P(, InEveryOrder, test::bothGenerations, test::generationName);

TEST_P(InEveryOrder, ANameAndASettingOfThePaneStay) {
  expectBothToStay([&](const std::string& setting) { phone.settingsThroughDaemon({setting}); });
}

// What the platform loses

TEST_P(Preferences, WrittenPastTheDaemonAreLostWhenItWrites) {
  phone.rename(app, "One");
  phone.settings({"enabled=false"});
  EXPECT_FALSE(opensAMenu());
  EXPECT_TRUE(has(file(), "enabled", "false"));
  phone.advance(delay);
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"One\"\n}") << "the daemon never looked at the file again";
  EXPECT_FALSE(opensAMenu()) << "the add-on has no reason to";
  phone.respring();
  EXPECT_TRUE(opensAMenu());
  EXPECT_EQ(label(), "One");
}

TEST_P(Preferences, WrittenPastTheDaemonStayUntilItHasSomethingToWrite) {
  phone.rename(app, "One");
  phone.flush();
  phone.settings({"disableType=1"});
  phone.flush().advance(delay);
  EXPECT_TRUE(has(file(), "disableType", "1"));
  phone.rename(app, "Two");
  EXPECT_TRUE(has(file(), "disableType", "1")) << "the add-on keeps what it finds";
  phone.flush();
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"Two\"\n}");
}

TEST_P(Preferences, ANameThatOnlyTheFileKnowsIsLostBesideTheAddOnsOwn) {
  phone.readPreferences(domain);
  phone.rename(app, "Told to both");
  phone.storeFromOutside(other, "Told to the file");
  phone.settingsThroughDaemon({"disableType=1"}).flush().respring();
  EXPECT_EQ(label(), "Told to both");
  EXPECT_EQ(phone.icon(other).label, "Notes");
}

// Ends

TEST_P(Preferences, AreKeptAndWrittenInTimeThroughARespring) {
  phone.settingsThroughDaemon({"disableType=1"}).advance(delay / 2).respring().advance(delay / 2 - 1);
  EXPECT_EQ(file(), "none");
  EXPECT_EQ(held(), "{\n  \"disableType\": 1\n}");
  phone.advance(1.001);
  EXPECT_EQ(file(), "{\n  \"disableType\": 1\n}");
}

TEST_P(Preferences, AreKeptAndWrittenInTimeWhenTheHomeScreenIsKilled) {
  phone.rename(app, "One");
  phone.settingsThroughDaemon({"disableType=1"}).crash();
  EXPECT_EQ(label(), "One");
  phone.advance(delay - 1);
  EXPECT_FALSE(theDaemonWroteLast());
  phone.advance(1.001);
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"One\"\n  \"disableType\": 1\n}");
  phone.rename(app, "Two");
  phone.crash().flush();
  EXPECT_EQ(label(), "Two");
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"Two\"\n  \"disableType\": 1\n}");
}

TEST_P(Preferences, AreWrittenWhenThePhoneIsSwitchedOff) {
  {
    sim::Phone another(phone.options());
    another.settingsThroughDaemon({"disableType=1"});
    EXPECT_EQ(file(), "none");
  }
  EXPECT_EQ(file(), "{\n  \"disableType\": 1\n}");
}

TEST_P(Preferences, ThatWereNotWrittenAreLostWithThePowerButNoName) {
  phone.rename(app, "One");
  phone.settingsThroughDaemon({"disableType=1"}).killDuring("now", {}, [] {});
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"One\"\n}");
  sim::Phone another(phone.options());
  EXPECT_EQ(another.screen().icon(app)->label, "One");
  EXPECT_FALSE(another.preferences(domain).has_value());
}

// Files that cannot be read or written

TEST_P(Preferences, OfADamagedFileAreNone) {
  sim::writeFile(phone.settingsFile(), "this is no property list\n");
  phone.settingsThroughDaemon({"disableType=1"});
  phone.rename(app, "One");
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"One\"\n}");
  phone.flush();
  EXPECT_EQ(file(), "{\n  \"com.example.test\": \"One\"\n  \"disableType\": 1\n}");
}

TEST_P(Preferences, OutliveDamageToTheirFile) {
  phone.settings({"disableType=1"});
  phone.rename(app, "One");
  sim::writeFile(phone.settingsFile(), "this is no property list\n");
  phone.rename(other, "Two");
  EXPECT_EQ(file(), "{\n  \"com.example.notes\": \"Two\"\n}");
  phone.flush().respring();
  EXPECT_EQ(file(), "{\n  \"com.example.notes\": \"Two\"\n  \"com.example.test\": \"One\"\n  \"disableType\": 1\n}");
  EXPECT_EQ(label(), "One");
}

TEST_P(Preferences, OfAFolderWithoutPermissionWaitInTheDaemon) {
  phone.settings({"disableType=1"});
  phone.touch(app);
  fs::permissions(folder(), fs::perms(0555));
  phone.rename(app, "One");
  EXPECT_EQ(label(), "Test App");
  phone.advance(2 * delay).flush();
  EXPECT_EQ(file(), "{\n  \"disableType\": 1\n}");
  EXPECT_EQ(held(), "{\n  \"com.example.test\": \"One\"\n  \"disableType\": 1\n}");
  fs::permissions(folder(), fs::perms::owner_all);
  phone.advance(2 * delay);
  EXPECT_EQ(file(), "{\n  \"disableType\": 1\n}");
  phone.rename(other, "Two");
  phone.flush().respring();
  EXPECT_EQ(file(), "{\n  \"com.example.notes\": \"Two\"\n  \"com.example.test\": \"One\"\n  \"disableType\": 1\n}");
  EXPECT_EQ(label(), "One");
}

TEST_P(Preferences, ThatNoPropertyListCanHoldAreNotTaken) {
  phone.settingsThroughDaemon({"disableType=1"});
  EXPECT_THROW(phone.ask("setPreferences", {{"domain", domain}, {"values", {{"disableType", {1, 2}}}}}), sim::BadInput);
  EXPECT_THROW(phone.ask("setPreferences", {{"domain", domain}}), sim::BadInput);
  EXPECT_EQ(held(), "{\n  \"disableType\": 1\n}");
}
