// The dialog that renames an application, and what it stores.
#include <algorithm>

#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
using Titles = std::vector<std::string>;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";
const std::string domain = "com.morvanel.sprigdial";

class Renaming : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }
  std::string label(const std::string& id = app) { return phone.icon(id).label; }
  // Without animations a menu is quicker than the quarter of a second that the dialog waits.
  void renameBothWithinTheWait() {
    phone.animations(false);
    phone.openMenu();
    phone.advance(1);
    phone.tap("Rename App").advance(0.1);
    phone.openMenu(other);
    phone.tap("Rename App").advance(0.2);
  }
  // A domain that the daemon does not hold is none.
  std::string preferences() {
    const auto held = phone.preferences(domain);
    return held ? held->readable() : "none";
  }
  std::vector<std::string> posted(const std::vector<sim::Phone::Call>& calls) {
    std::vector<std::string> names;
    for (const auto& call : calls)
      if (call.kind == "post") names.push_back(call.selector + ": " + call.encoding);
    return names;
  }
};

bool has(const std::vector<sim::Phone::Call>& calls, const std::string& className, const std::string& selector) {
  return std::any_of(calls.begin(), calls.end(),
                     [&](const auto& call) { return call.className == className && call.selector == selector; });
}

/// What only hand-written settings can hold: every kind of value, keys in the order in which they are written.
const std::string head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n<dict>\n";
const std::string settingsBefore =
    "\t<key>blob</key>\n\t<data>\n\tAAECA/8=\n\t</data>\n"
    "\t<key>com.example.notes</key>\n\t<string>Jotter &amp; &lt;Co&gt;</string>\n";
const std::string settingsAfter =
    "\t<key>direction</key>\n\t<integer>0</integer>\n"
    "\t<key>disableType</key>\n\t<integer>-3</integer>\n"
    "\t<key>enabled</key>\n\t<true/>\n"
    "\t<key>hideLabel</key>\n\t<false/>\n"
    "\t<key>nested</key>\n\t<dict>\n\t\t<key>list</key>\n\t\t<array>\n\t\t\t<integer>1</integer>\n"
    "\t\t\t<real>1.5</real>\n\t\t\t<array/>\n\t\t\t<dict/>\n\t\t</array>\n\t</dict>\n"
    "\t<key>slideValue</key>\n\t<real>0.5</real>\n"
    "\t<key>useForce</key>\n\t<string>NO</string>\n"
    "\t<key>when</key>\n\t<date>2020-02-29T12:34:56Z</date>\n";
const std::string tail = "</dict>\n</plist>\n";

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Renaming, test::bothGenerations, test::generationName);

// A text field that has no text at all

TEST_P(Renaming, WithoutATextTakesTheStoredNameAway) {
  phone.options().interposed = {"UITextField text"};
  phone.rename(app, "Mine");
  phone.rename(other, "Jotter");
  ASSERT_EQ(phone.storedName(app), "Mine");
  phone.openRenameDialog();
  phone.interpose("UITextField text", {{"do", "nil"}});
  phone.tap("Apply");
  EXPECT_EQ(phone.storedName(app), std::nullopt);
  EXPECT_EQ(phone.storedName(other), "Jotter");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(preferences().find("Mine"), std::string::npos);
  EXPECT_NE(preferences().find("Jotter"), std::string::npos);
}

// The dialog

TEST_P(Renaming, TheDialogComesAQuarterOfASecondAfterTheTap) {
  phone.openMenu();
  phone.advance(1);
  phone.tap("Rename App");
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.advance(0.249);
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.advance(0.002);
  EXPECT_EQ(phone.alert().title, "Rename App");
}

TEST_P(Renaming, TheDialogIsAnAlertWithTheNameInAField) {
  phone.openRenameDialog();
  const auto alert = phone.alert();
  EXPECT_EQ(alert.style, "alert");
  EXPECT_EQ(alert.title, "Rename App");
  EXPECT_EQ(alert.message, "Test App");
  EXPECT_EQ(alert.titles(), (Titles{"Apply", "Cancel"}));
  EXPECT_EQ(alert.buttons[0].style, "default");
  EXPECT_EQ(alert.buttons[1].style, "cancel");
  ASSERT_EQ(alert.textFields.size(), 1U);
  EXPECT_EQ(alert.textFields[0].text, "Test App");
  EXPECT_EQ(alert.textFields[0].placeholder, "");
  EXPECT_EQ(alert.textFields[0].keyboard, "default");
  EXPECT_EQ(alert.textFields[0].clearButton, "always");
  EXPECT_EQ(alert.textFields[0].returnKey, "done");
  EXPECT_EQ(alert.textFields[0].delegate, "RenameIcon");
}

TEST_P(Renaming, TheDialogHasAFullScreenWindowBelowTheSystemsAlerts) {
  phone.openRenameDialog();
  const auto windows = phone.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, bounds());
}

TEST_P(Renaming, TheDialogComesOnATabletToo) {
  phone.options().tablet = true;
  test::Phone tablet(GetParam(), phone.options());
  tablet.openRenameDialog(other);
  EXPECT_EQ(tablet.alert().title, "Rename App");
  tablet.type("Jotter").tap("Apply");
  EXPECT_EQ(tablet.icon(other).label, "Jotter");
}

TEST_P(Renaming, TheDialogBeginsWithTheApplicationsOwnName) {
  phone.rename(app, "Stored");
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "Stored");
  phone.tap("Rename App").advance(1);
  EXPECT_EQ(phone.alert().message, "Test App");
  EXPECT_EQ(phone.alert().textFields[0].text, "Test App");
  // Everything else goes on showing the new one.
  EXPECT_EQ(label(), "Stored");
  EXPECT_EQ(phone.icon(app).spoken, "Stored");
}

TEST_P(Renaming, TheIconIsAskedForItsNameOnTheHomeScreen) {
  phone.openMenu();
  phone.advance(1);
  phone.tap("Rename App");
  const auto calls = phone.callsDuring([&] { phone.advance(1); });
  EXPECT_TRUE(has(calls, "SBApplicationIcon", "displayNameForLocation:"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "displayName"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "leafIdentifier")) << "no stored name is looked up";
}

// What is stored

TEST_P(Renaming, ApplyShowsTheNewNameEverywhere) {
  phone.launch(app).home();
  phone.rename(app, "New Name");
  const auto screen = phone.screen();
  EXPECT_TRUE(screen.windows.empty());
  EXPECT_EQ(screen.icon(app)->label, "New Name");
  EXPECT_EQ(screen.icon(app)->spoken, "New Name");
  EXPECT_EQ(screen.switcher, (Titles{"New Name"}));
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "New Name");
  phone.tap("Clear Caches(0 MB)");
  EXPECT_EQ(phone.alert().title, "New Name");
  phone.tap("YES");
  EXPECT_EQ(phone.alert().title, "New Name");
  phone.tap("OK").perform("setBadges");
  EXPECT_EQ(phone.alert().message, "New Name");
}

TEST_P(Renaming, TheNameSurvivesARespring) {
  phone.rename(app, "New Name");
  phone.respring();
  EXPECT_EQ(label(), "New Name");
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "New Name");
}

TEST_P(Renaming, EachApplicationHasItsOwnName) {
  phone.rename(app, "One");
  phone.rename(other, "Two");
  phone.rename(app, "Three");
  EXPECT_EQ(label(), "Three");
  EXPECT_EQ(label(other), "Two");
  EXPECT_EQ(label("com.example.weather"), "Weather");
  EXPECT_EQ(preferences(), "{\n  \"com.example.notes\": \"Two\"\n  \"com.example.test\": \"Three\"\n}");
}

TEST_P(Renaming, AnyTextIsAName) {
  std::string endless;
  for (int i = 0; i < 20'000; ++i) endless += "long ";
  for (const std::string& name :
       {std::string("👩‍👩‍👧‍👦 🏳️‍🌈"), std::string("e\u0301a\u0323\u0308"),
        std::string("שלום, مرحبا"), std::string("\"quoted\" 'and' \\ %@ %s"), std::string("<b> & </string> ]]>"),
        std::string(" \t two\nlines "), std::string("true"), std::string("42"), endless}) {
    phone.rename(app, name);
    EXPECT_EQ(phone.storedName(app), name);
    EXPECT_EQ(label(), name);
    phone.openMenu();
    EXPECT_EQ(phone.alert().title, name);
    phone.tap("Cancel").advance(1);
    EXPECT_EQ(phone.preferences(domain).value().text(app), name);
  }
}

TEST_P(Renaming, AnEmptyTextIsANameToo) {
  phone.rename(app, "");
  EXPECT_EQ(phone.storedName(app), "");
  EXPECT_EQ(label(), "");
  phone.respring();
  EXPECT_EQ(label(), "");
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "");
}

TEST_P(Renaming, TheOwnNameIsStoredLikeAnyOther) {
  phone.rename(app, "Other");
  phone.openRenameDialog();
  phone.tap("Apply");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(phone.storedName(app), "Test App");
}

TEST_P(Renaming, EverythingElseInTheFileStaysAsItWas) {
  sim::writeFile(phone.settingsFile(), head + settingsBefore + settingsAfter + tail);
  phone.rename(app, "<New> & Name");
  EXPECT_EQ(sim::readFile(phone.settingsFile()).value(),
            head + settingsBefore + "\t<key>com.example.test</key>\n\t<string>&lt;New&gt; &amp; Name</string>\n" +
                settingsAfter + tail);
}

TEST_P(Renaming, ABinaryFileIsWrittenBackAsXML) {
  phone.settings({"slideValue=2.5", "useBadge=false", "direction=0"});
  ASSERT_EQ(sim::readFile(phone.settingsFile()).value().substr(0, 6), "bplist");
  phone.rename(app, "New");
  EXPECT_EQ(sim::readFile(phone.settingsFile()).value().substr(0, 5), "<?xml");
  const std::string content = sim::PropertyList::read(phone.settingsFile()).value().readable();
  for (const std::string line : {"\"slideValue\": 2.5\n", "\"useBadge\": false\n", "\"direction\": 0\n"})
    EXPECT_NE(content.find(line), std::string::npos) << content;
}

TEST_P(Renaming, TheFileIsReplacedNotWrittenOver) {
  phone.settings({"direction=0"});
  const auto before = sim::readFile(phone.settingsFile()).value();
  const auto reader = phone.path("/var/mobile/reader");
  fs::create_hard_link(phone.settingsFile(), reader);
  const auto neighbours = test::filesBelow(phone.settingsFile().parent_path()).size();
  phone.rename(app, "New");
  EXPECT_EQ(sim::readFile(reader).value(), before) << "who has the file open sees the old content";
  EXPECT_EQ(phone.storedName(app), "New");
  EXPECT_EQ(test::filesBelow(phone.settingsFile().parent_path()).size(), neighbours + 1)
      << "the mute list alone is new";
}

TEST_P(Renaming, TheFirstNameCreatesTheFile) {
  phone.openMenu();
  ASSERT_FALSE(fs::exists(phone.settingsFile()));
  phone.tap("Cancel").advance(1);
  phone.rename(app, "New");
  EXPECT_EQ(sim::readFile(phone.settingsFile()).value(),
            head + "\t<key>com.example.test</key>\n\t<string>New</string>\n" + tail);
}

TEST_P(Renaming, ThePreferencesDomainGetsTheNameAlone) {
  phone.settings({"disableType=0"});
  phone.readPreferences(domain);
  phone.settings({"disableType=1"});
  phone.rename(app, "New");
  EXPECT_EQ(preferences(), "{\n  \"com.example.test\": \"New\"\n  \"disableType\": 0\n}");
}

TEST_P(Renaming, SettingsChangedMeanwhileAreKept) {
  phone.openRenameDialog();
  phone.settings({"useBadge=false"});
  phone.type("New").tap("Apply");
  EXPECT_NE(sim::PropertyList::read(phone.settingsFile()).value().readable().find("\"useBadge\": false"),
            std::string::npos);
  EXPECT_EQ(label(), "New");
}

TEST_P(Renaming, SwitchedOffWhileTheDialogIsUpStillStores) {
  phone.openRenameDialog();
  phone.settings({"enabled=false"});
  phone.type("New").tap("Apply");
  EXPECT_EQ(phone.storedName(app), "New");
  EXPECT_EQ(label(), "Test App");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Renaming, CancelLeavesTheFileUntouched) {
  phone.settings({"direction=0", app + "=Stored"});
  phone.respring();
  const auto before = sim::readFile(phone.settingsFile()).value();
  const auto written = fs::last_write_time(phone.settingsFile());
  phone.openRenameDialog();
  const auto calls = phone.callsDuring([&] { phone.type("Never").tap("Cancel"); });
  EXPECT_EQ(posted(calls), Titles{});
  EXPECT_FALSE(has(calls, "SBIconView", "_updateLabel"));
  EXPECT_TRUE(phone.screen().windows.empty());
  EXPECT_EQ(sim::readFile(phone.settingsFile()).value(), before);
  EXPECT_EQ(fs::last_write_time(phone.settingsFile()), written);
  EXPECT_EQ(preferences(), "none");
  EXPECT_EQ(label(), "Stored");
}

TEST_P(Renaming, CancelLeavesAMissingFileMissing) {
  phone.openRenameDialog();
  phone.type("Never").tap("Cancel");
  EXPECT_FALSE(fs::exists(phone.settingsFile()));
  EXPECT_EQ(label(), "Test App");
}

// Refreshing

TEST_P(Renaming, OtherLabelsAreReadAnewInTheNewGenerationOnly) {
  ASSERT_EQ(label(other), "Notes");
  phone.openRenameDialog();
  phone.storeFromOutside(other, "Jotter");
  const auto calls = phone.callsDuring([&] { phone.type("New").tap("Apply"); });
  EXPECT_EQ(label(), "New");
  EXPECT_EQ(label(other), isOld() ? "Notes" : "Jotter");
  const Titles expected =
      isOld() ? Titles{} : Titles{"com.morvanel.sprigdial.renamelable: object nil, user info nil, immediately"};
  EXPECT_EQ(posted(calls), expected);
}

TEST_P(Renaming, OnlyTheRenamedIconsViewIsToldInTheOldGeneration) {
  phone.openRenameDialog();
  const auto calls = phone.callsDuring([&] { phone.tap("Apply"); });
  const auto told = std::count_if(calls.begin(), calls.end(), [](const auto& call) {
    return call.className == "SBIconView" && call.selector == "_updateLabel";
  });
  // In the new generation every view is told, twice: it came through two initialisers.
  EXPECT_EQ(told, isOld() ? 1 : 2 * static_cast<long>(phone.screen().icons.size()));
}

// Replaced without a tap

TEST_P(Renaming, ADialogThatIsTakenAwayStaysInItsSlotsAlone) {
  for (const bool locking : {true, false}) {
    phone.openRenameDialog();
    if (locking) {
      phone.lock().unlock();
    } else {
      phone.powerDown().home();
    }
    EXPECT_TRUE(phone.screen().windows.empty());
    phone.advance(1);
    EXPECT_EQ(phone.live("RenameIcon"), 1);
    EXPECT_EQ(phone.live("UIAlertController"), 1);
    EXPECT_EQ(phone.live("UIAlertAction"), 2);
    EXPECT_EQ(phone.live("UIWindow"), 0);
    EXPECT_EQ(phone.live("UIViewController"), 0);
    EXPECT_EQ(phone.live("blocks"), 0) << "the buttons' handlers went with the screen";
  }
  EXPECT_FALSE(fs::exists(phone.settingsFile()));
}

TEST_P(Renaming, AMenuReplacesTheDialog) {
  phone.openRenameDialog();
  phone.openMenuInSpite(other);
  ASSERT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.alert().title, "Notes");
  phone.tap("Cancel").advance(1);
  EXPECT_EQ(phone.live("RenameIcon"), 1);
  EXPECT_EQ(phone.live("UIAlertController"), 1);
  EXPECT_EQ(phone.live("UIWindow"), 0);
}

TEST_P(Renaming, ASecondRenamerReplacesTheFirstWhileItsDialogIsUp) {
  phone.openRenameDialog();
  phone.openMenuInSpite(other);
  phone.tap("Rename App").advance(1);
  ASSERT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.alert().message, "Notes");
  EXPECT_EQ(phone.live("RenameIcon"), 1);
  EXPECT_EQ(phone.live("UIAlertController"), 1);
  EXPECT_EQ(phone.live("blocks"), 2);
  phone.type("Jotter").tap("Apply");
  EXPECT_EQ(label(other), "Jotter");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(phone.live("RenameIcon"), 0);
}

TEST_P(Renaming, ASecondRenamerBeforeTheFirstOnesDialogComesAfterIt) {
  renameBothWithinTheWait();
  EXPECT_EQ(phone.alert().message, "Test App");
  EXPECT_EQ(phone.live("RenameIcon"), 2);
  phone.advance(0.1);
  EXPECT_EQ(phone.alert().message, "Notes");
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.live("RenameIcon"), 1);
}

TEST_P(Renaming, TheFirstOfTwoRenamersEndsWithoutTheSecond) {
  renameBothWithinTheWait();
  phone.type("First").tap("Apply");
  EXPECT_EQ(label(), "First");
  EXPECT_TRUE(phone.screen().windows.empty());
  EXPECT_EQ(phone.live("RenameIcon"), 1) << "the second one waits for its dialog";
  phone.advance(0.1);
  EXPECT_EQ(phone.alert().message, "Notes");
  phone.tap("Cancel");
  EXPECT_EQ(phone.live("RenameIcon"), 0);
}

TEST_P(Renaming, LockingBeforeTheDialogComesDoesNotKeepItAway) {
  phone.openMenu();
  phone.tap("Rename App").lock().unlock().advance(1);
  EXPECT_EQ(phone.alert().title, "Rename App");
}

TEST_P(Renaming, TheApplicationMayGoWhileItsDialogIsUp) {
  const long icons = phone.live("SBApplicationIcon");
  for (const std::string button : {"Apply", "Cancel"}) {
    phone.install({});
    phone.openRenameDialog();
    phone.uninstall(app);
    EXPECT_EQ(phone.screen().icon(app), nullptr);
    EXPECT_EQ(phone.live("SBApplicationIcon"), icons) << "the renamer keeps its icon";
    phone.type("Gone").tap(button);
    EXPECT_TRUE(phone.screen().windows.empty());
    EXPECT_EQ(phone.live("SBApplicationIcon"), icons - 1);
    EXPECT_EQ(phone.storedName(app), "Gone") << "from the first round on";
  }
  phone.install({});
  EXPECT_EQ(label(), "Gone");
}

TEST_P(Renaming, ARenamerThatGoesLetsGoOfItsIconAndView) {
  const long icons = phone.live("SBApplicationIcon");
  const long views = phone.live("SBIconView");
  phone.openRenameDialog();
  phone.lock().unlock();
  phone.uninstall(app);
  EXPECT_EQ(phone.live("SBApplicationIcon"), icons);
  EXPECT_EQ(phone.live("SBIconView"), isOld() ? views : views - 1) << "the new generation finds no view";
  phone.openRenameDialog(other);
  EXPECT_EQ(phone.live("RenameIcon"), 1);
  EXPECT_EQ(phone.live("SBApplicationIcon"), icons - 1);
  EXPECT_EQ(phone.live("SBIconView"), views - 1);
}

TEST_P(Renaming, ADownloadMayEndWhileADialogIsUp) {
  phone.startDownload("com.example.coming");
  phone.openRenameDialog();
  phone.removeDownload("com.example.coming").advance(1);
  phone.type("New").tap("Apply");
  EXPECT_EQ(label(), "New");
}

// Many in a row

class ManyRenames : public Renaming {
 protected:
  static constexpr int rounds = 50;
  void expectFlat(const std::function<void()>& round) {
    round();
    phone.advance(1);
    const auto first = phone.live();
    for (int i = 0; i < rounds; ++i) round();
    phone.advance(1);
    EXPECT_EQ(phone.live(), first);
  }
};
INSTANTIATE_TEST_SUITE_P(, ManyRenames, test::bothGenerations, test::generationName);

TEST_P(ManyRenames, AppliedLeaveNothing) {
  int i = 0;
  expectFlat([&] { phone.rename(app, "Name " + std::to_string(++i)); });
  EXPECT_EQ(label(), "Name 51");
  EXPECT_EQ(phone.live("RenameIcon"), 0);
  EXPECT_EQ(phone.live("UIAlertController"), 0);
  EXPECT_EQ(phone.live("blocks"), 0);
}

TEST_P(ManyRenames, CancelledLeaveNothing) {
  expectFlat([&] {
    phone.openRenameDialog();
    phone.tap("Cancel");
  });
  EXPECT_EQ(phone.live("RenameIcon"), 0);
  EXPECT_EQ(phone.live("UIAlertController"), 0);
  EXPECT_EQ(phone.live("blocks"), 0);
}

TEST_P(ManyRenames, ReplacedBeforeTheirDialogLeaveTheLastAlone) {
  phone.animations(false);
  expectFlat([&] {
    phone.openMenuInSpite();
    phone.advance(1);
    phone.tap("Rename App").advance(0.1);
    phone.openRenameDialog(other);
  });
  EXPECT_EQ(phone.live("RenameIcon"), 1);
  EXPECT_EQ(phone.live("UIAlertController"), 1);
}

TEST_P(ManyRenames, ReplacedByLockingLeaveTheLastAlone) {
  expectFlat([&] {
    phone.openRenameDialog();
    phone.lock().unlock();
  });
  EXPECT_EQ(phone.live("RenameIcon"), 1);
  EXPECT_EQ(phone.live("UIAlertController"), 1);
  EXPECT_EQ(phone.live("UIWindow"), 0);
}

// Core libraries before version 1000

class RenamingLongAgo : public test::OldGeneration {
 protected:
  void start(double coreVersion) {
    phone.options().coreVersion = coreVersion;
    phone.install({});
  }
};

TEST_F(RenamingLongAgo, ThePreferencesDomainIsSetFromVersionThousandOn) {
  start(1000.0);
  phone.rename(app, "New");
  EXPECT_EQ(phone.preferences(domain).value().text(app), "New");
  test::Phone before(sim::Generation::old, {.coreVersion = 999.9});
  before.rename(other, "New");
  EXPECT_FALSE(before.preferences(domain).has_value());
  EXPECT_EQ(before.storedName(other), "New");
  EXPECT_EQ(before.icon(other).label, "New");
}

TEST_F(RenamingLongAgo, AnIconThatKnowsNoLocationsIsAskedForItsOneName) {
  start(999);
  phone.openMenu();
  phone.advance(1);
  phone.tap("Rename App");
  const auto calls = phone.callsDuring([&] { phone.advance(1); });
  EXPECT_TRUE(has(calls, "SBApplicationIcon", "displayName"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "displayNameForLocation:"));
  EXPECT_EQ(phone.alert().textFields[0].text, "Test App");
}

// There the icon's own name is the application's, which shows its new one throughout.
TEST_F(RenamingLongAgo, TheApplicationItselfAnswersWithItsNewNameToTheDialogToo) {
  start(999);
  phone.rename(app, "Stored");
  EXPECT_EQ(phone.icon(app).label, "Stored");
  const auto calls = phone.callsDuring([&] { phone.openRenameDialog(); });
  EXPECT_EQ(phone.alert().message, "Stored");
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "leafIdentifier")) << "the icon's part is bypassed";
}
