// The dialog that renames an application, and what it stores.
#include <algorithm>

#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;
using Titles = std::vector<std::string>;

const std::string app = "com.example.test";
const std::string other = "com.example.notes";
const std::string domain = "com.morvanel.sprigdial";

class Renaming : public test::Generations {
 protected:
  void SetUp() override { home.install({}); }
  std::string label(const std::string& id = app) { return home.icon(id).label; }
  // A domain that the daemon does not hold is none.
  std::string preferences() {
    const auto held = home->preferences(domain);
    return held ? held->readable() : "none";
  }
  std::vector<std::string> posted(const std::vector<sim::HomeScreen::Call>& calls) {
    std::vector<std::string> names;
    for (const auto& call : calls)
      if (call.kind == "post") names.push_back(call.selector + ": " + call.encoding);
    return names;
  }
};

bool has(const std::vector<sim::HomeScreen::Call>& calls, const std::string& className, const std::string& selector) {
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
  home.options().interposed = {"UITextField text"};
  home.rename(app, "Mine");
  home.rename(other, "Jotter");
  ASSERT_EQ(home.storedName(app), "Mine");
  home.openRenameDialog();
  home->interpose("UITextField text", {{"do", "nil"}});
  home->tap("Apply");
  EXPECT_EQ(home.storedName(app), std::nullopt);
  EXPECT_EQ(home.storedName(other), "Jotter");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(preferences().find("Mine"), std::string::npos);
  EXPECT_NE(preferences().find("Jotter"), std::string::npos);
}

// The dialog

TEST_P(Renaming, TheDialogComesAQuarterOfASecondAfterTheTap) {
  home.openMenu();
  home->advance(1);
  home->tap("Rename App");
  EXPECT_TRUE(home.screen().windows.empty());
  home->advance(0.249);
  EXPECT_TRUE(home.screen().windows.empty());
  home->advance(0.002);
  EXPECT_EQ(home.alert().title, "Rename App");
}

TEST_P(Renaming, TheDialogIsAnAlertWithTheNameInAField) {
  home.openRenameDialog();
  const auto alert = home.alert();
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
  home.openRenameDialog();
  const auto windows = home.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, bounds());
}

TEST_P(Renaming, TheDialogComesOnATabletToo) {
  home.options().tablet = true;
  test::Home tablet(GetParam(), home.options());
  tablet.openRenameDialog(other);
  EXPECT_EQ(tablet.alert().title, "Rename App");
  tablet->type("Jotter").tap("Apply");
  EXPECT_EQ(tablet.icon(other).label, "Jotter");
}

TEST_P(Renaming, TheDialogBeginsWithTheApplicationsOwnName) {
  home.rename(app, "Stored");
  home.openMenu();
  EXPECT_EQ(home.alert().title, "Stored");
  home->tap("Rename App").advance(1);
  EXPECT_EQ(home.alert().message, "Test App");
  EXPECT_EQ(home.alert().textFields[0].text, "Test App");
  // Everything else goes on showing the new one.
  EXPECT_EQ(label(), "Stored");
  EXPECT_EQ(home.icon(app).spoken, "Stored");
}

TEST_P(Renaming, TheIconIsAskedForItsNameOnTheHomeScreen) {
  home.openMenu();
  home->advance(1);
  home->tap("Rename App");
  const auto calls = home.callsDuring([&] { home->advance(1); });
  EXPECT_TRUE(has(calls, "SBApplicationIcon", "displayNameForLocation:"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "displayName"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "leafIdentifier")) << "no stored name is looked up";
}

// What is stored

TEST_P(Renaming, ApplyShowsTheNewNameEverywhere) {
  home->launch(app).home();
  home.rename(app, "New Name");
  const auto screen = home.screen();
  EXPECT_TRUE(screen.windows.empty());
  EXPECT_EQ(screen.icon(app)->label, "New Name");
  EXPECT_EQ(screen.icon(app)->spoken, "New Name");
  EXPECT_EQ(screen.switcher, (Titles{"New Name"}));
  home.openMenu();
  EXPECT_EQ(home.alert().title, "New Name");
  home->tap("Clear Caches(0 MB)");
  EXPECT_EQ(home.alert().title, "New Name");
  home->tap("YES");
  EXPECT_EQ(home.alert().title, "New Name");
  home->tap("OK").perform("setBadges");
  EXPECT_EQ(home.alert().message, "New Name");
}

TEST_P(Renaming, TheNameSurvivesARespring) {
  home.rename(app, "New Name");
  home->respring();
  EXPECT_EQ(label(), "New Name");
  home.openMenu();
  EXPECT_EQ(home.alert().title, "New Name");
}

TEST_P(Renaming, EachApplicationHasItsOwnName) {
  home.rename(app, "One");
  home.rename(other, "Two");
  home.rename(app, "Three");
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
    home.rename(app, name);
    EXPECT_EQ(home.storedName(app), name);
    EXPECT_EQ(label(), name);
    home.openMenu();
    EXPECT_EQ(home.alert().title, name);
    home->tap("Cancel").advance(1);
    EXPECT_EQ(home->preferences(domain).value().text(app), name);
  }
}

TEST_P(Renaming, AnEmptyTextIsANameToo) {
  home.rename(app, "");
  EXPECT_EQ(home.storedName(app), "");
  EXPECT_EQ(label(), "");
  home->respring();
  EXPECT_EQ(label(), "");
  home.openMenu();
  EXPECT_EQ(home.alert().title, "");
}

TEST_P(Renaming, TheOwnNameIsStoredLikeAnyOther) {
  home.rename(app, "Other");
  home.openRenameDialog();
  home->tap("Apply");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(home.storedName(app), "Test App");
}

TEST_P(Renaming, EverythingElseInTheFileStaysAsItWas) {
  sim::writeFile(home.settingsFile(), head + settingsBefore + settingsAfter + tail);
  home.rename(app, "<New> & Name");
  EXPECT_EQ(sim::readFile(home.settingsFile()).value(),
            head + settingsBefore + "\t<key>com.example.test</key>\n\t<string>&lt;New&gt; &amp; Name</string>\n" +
                settingsAfter + tail);
}

TEST_P(Renaming, ABinaryFileIsWrittenBackAsXML) {
  home.settings({"slideValue=2.5", "useBadge=false", "direction=0"});
  ASSERT_EQ(sim::readFile(home.settingsFile()).value().substr(0, 6), "bplist");
  home.rename(app, "New");
  EXPECT_EQ(sim::readFile(home.settingsFile()).value().substr(0, 5), "<?xml");
  const std::string content = sim::PropertyList::read(home.settingsFile()).value().readable();
  for (const std::string line : {"\"slideValue\": 2.5\n", "\"useBadge\": false\n", "\"direction\": 0\n"})
    EXPECT_NE(content.find(line), std::string::npos) << content;
}

TEST_P(Renaming, TheFileIsReplacedNotWrittenOver) {
  home.settings({"direction=0"});
  const auto before = sim::readFile(home.settingsFile()).value();
  const auto reader = home.path("/var/mobile/reader");
  fs::create_hard_link(home.settingsFile(), reader);
  const auto neighbours = test::filesBelow(home.settingsFile().parent_path()).size();
  home.rename(app, "New");
  EXPECT_EQ(sim::readFile(reader).value(), before) << "who has the file open sees the old content";
  EXPECT_EQ(home.storedName(app), "New");
  EXPECT_EQ(test::filesBelow(home.settingsFile().parent_path()).size(), neighbours + 1) << "the mute list alone is new";
}

TEST_P(Renaming, TheFirstNameCreatesTheFile) {
  home.openMenu();
  ASSERT_FALSE(fs::exists(home.settingsFile()));
  home->tap("Cancel").advance(1);
  home.rename(app, "New");
  EXPECT_EQ(sim::readFile(home.settingsFile()).value(),
            head + "\t<key>com.example.test</key>\n\t<string>New</string>\n" + tail);
}

TEST_P(Renaming, ThePreferencesDomainGetsTheNameAlone) {
  home.settings({"disableType=0"});
  home->readPreferences(domain);
  home.settings({"disableType=1"});
  home.rename(app, "New");
  EXPECT_EQ(preferences(), "{\n  \"com.example.test\": \"New\"\n  \"disableType\": 0\n}");
}

TEST_P(Renaming, SettingsChangedMeanwhileAreKept) {
  home.openRenameDialog();
  home.settings({"useBadge=false"});
  home->type("New").tap("Apply");
  EXPECT_NE(sim::PropertyList::read(home.settingsFile()).value().readable().find("\"useBadge\": false"),
            std::string::npos);
  EXPECT_EQ(label(), "New");
}

TEST_P(Renaming, SwitchedOffWhileTheDialogIsUpStillStores) {
  home.openRenameDialog();
  home.settings({"enabled=false"});
  home->type("New").tap("Apply");
  EXPECT_EQ(home.storedName(app), "New");
  EXPECT_EQ(label(), "Test App");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Renaming, CancelLeavesTheFileUntouched) {
  home.settings({"direction=0", app + "=Stored"});
  home->respring();
  const auto before = sim::readFile(home.settingsFile()).value();
  const auto written = fs::last_write_time(home.settingsFile());
  home.openRenameDialog();
  const auto calls = home.callsDuring([&] { home->type("Never").tap("Cancel"); });
  EXPECT_EQ(posted(calls), Titles{});
  EXPECT_FALSE(has(calls, "SBIconView", "_updateLabel"));
  EXPECT_TRUE(home.screen().windows.empty());
  EXPECT_EQ(sim::readFile(home.settingsFile()).value(), before);
  EXPECT_EQ(fs::last_write_time(home.settingsFile()), written);
  EXPECT_EQ(preferences(), "none");
  EXPECT_EQ(label(), "Stored");
}

TEST_P(Renaming, CancelLeavesAMissingFileMissing) {
  home.openRenameDialog();
  home->type("Never").tap("Cancel");
  EXPECT_FALSE(fs::exists(home.settingsFile()));
  EXPECT_EQ(label(), "Test App");
}

// Refreshing

TEST_P(Renaming, OtherLabelsAreReadAnewInTheNewGenerationOnly) {
  ASSERT_EQ(label(other), "Notes");
  home.openRenameDialog();
  home.storeFromOutside(other, "Jotter");
  const auto calls = home.callsDuring([&] { home->type("New").tap("Apply"); });
  EXPECT_EQ(label(), "New");
  EXPECT_EQ(label(other), isOld() ? "Notes" : "Jotter");
  const Titles expected =
      isOld() ? Titles{} : Titles{"com.morvanel.sprigdial.renamelable: object nil, user info nil, immediately"};
  EXPECT_EQ(posted(calls), expected);
}

TEST_P(Renaming, OnlyTheRenamedIconsViewIsToldInTheOldGeneration) {
  home.openRenameDialog();
  const auto calls = home.callsDuring([&] { home->tap("Apply"); });
  const auto told = std::count_if(calls.begin(), calls.end(), [](const auto& call) {
    return call.className == "SBIconView" && call.selector == "_updateLabel";
  });
  // In the new generation every view is told, twice: it came through two initialisers.
  EXPECT_EQ(told, isOld() ? 1 : 2 * static_cast<long>(home.screen().icons.size()));
}

// Replaced without a tap

TEST_P(Renaming, ADialogThatIsTakenAwayStaysInItsSlotsAlone) {
  for (const bool locking : {true, false}) {
    home.openRenameDialog();
    if (locking) {
      home->lock().unlock();
    } else {
      home->powerDown().home();
    }
    EXPECT_TRUE(home.screen().windows.empty());
    home->advance(1);
    EXPECT_EQ(home.live("RenameIcon"), 1);
    EXPECT_EQ(home.live("UIAlertController"), 1);
    EXPECT_EQ(home.live("UIAlertAction"), 2);
    EXPECT_EQ(home.live("UIWindow"), 0);
    EXPECT_EQ(home.live("UIViewController"), 0);
    EXPECT_EQ(home.live("blocks"), 0) << "the buttons' handlers went with the screen";
  }
  EXPECT_FALSE(fs::exists(home.settingsFile()));
}

TEST_P(Renaming, AMenuReplacesTheDialog) {
  home.openRenameDialog();
  home.openMenuInSpite(other);
  ASSERT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.alert().title, "Notes");
  home->tap("Cancel").advance(1);
  EXPECT_EQ(home.live("RenameIcon"), 1);
  EXPECT_EQ(home.live("UIAlertController"), 1);
  EXPECT_EQ(home.live("UIWindow"), 0);
}

TEST_P(Renaming, ASecondRenamerReplacesTheFirstWhileItsDialogIsUp) {
  home.openRenameDialog();
  home.openMenuInSpite(other);
  home->tap("Rename App").advance(1);
  ASSERT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.alert().message, "Notes");
  EXPECT_EQ(home.live("RenameIcon"), 1);
  EXPECT_EQ(home.live("UIAlertController"), 1);
  EXPECT_EQ(home.live("blocks"), 2);
  home->type("Jotter").tap("Apply");
  EXPECT_EQ(label(other), "Jotter");
  EXPECT_EQ(label(), "Test App");
  EXPECT_EQ(home.live("RenameIcon"), 0);
}

// Without animations a menu is quicker than the quarter of a second that the dialog waits.
TEST_P(Renaming, ASecondRenamerBeforeTheFirstOnesDialogComesAfterIt) {
  home->animations(false);
  home.openMenu();
  home->advance(1);
  home->tap("Rename App").advance(0.1);
  home.openMenu(other);
  home->tap("Rename App").advance(0.2);
  EXPECT_EQ(home.alert().message, "Test App");
  EXPECT_EQ(home.live("RenameIcon"), 2);
  home->advance(0.1);
  EXPECT_EQ(home.alert().message, "Notes");
  EXPECT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.live("RenameIcon"), 1);
}

TEST_P(Renaming, TheFirstOfTwoRenamersEndsWithoutTheSecond) {
  home->animations(false);
  home.openMenu();
  home->advance(1);
  home->tap("Rename App").advance(0.1);
  home.openMenu(other);
  home->tap("Rename App").advance(0.2);
  home->type("First").tap("Apply");
  EXPECT_EQ(label(), "First");
  EXPECT_TRUE(home.screen().windows.empty());
  EXPECT_EQ(home.live("RenameIcon"), 1) << "the second one waits for its dialog";
  home->advance(0.1);
  EXPECT_EQ(home.alert().message, "Notes");
  home->tap("Cancel");
  EXPECT_EQ(home.live("RenameIcon"), 0);
}

TEST_P(Renaming, LockingBeforeTheDialogComesDoesNotKeepItAway) {
  home.openMenu();
  home->tap("Rename App").lock().unlock().advance(1);
  EXPECT_EQ(home.alert().title, "Rename App");
}

TEST_P(Renaming, TheApplicationMayGoWhileItsDialogIsUp) {
  const long icons = home.live("SBApplicationIcon");
  for (const std::string button : {"Apply", "Cancel"}) {
    home.install({});
    home.openRenameDialog();
    home.uninstall(app);
    EXPECT_EQ(home.screen().icon(app), nullptr);
    EXPECT_EQ(home.live("SBApplicationIcon"), icons) << "the renamer keeps its icon";
    home->type("Gone").tap(button);
    EXPECT_TRUE(home.screen().windows.empty());
    EXPECT_EQ(home.live("SBApplicationIcon"), icons - 1);
    EXPECT_EQ(home.storedName(app), "Gone") << "from the first round on";
  }
  home.install({});
  EXPECT_EQ(label(), "Gone");
}

TEST_P(Renaming, ARenamerThatGoesLetsGoOfItsIconAndView) {
  const long icons = home.live("SBApplicationIcon");
  const long views = home.live("SBIconView");
  home.openRenameDialog();
  home->lock().unlock();
  home.uninstall(app);
  EXPECT_EQ(home.live("SBApplicationIcon"), icons);
  EXPECT_EQ(home.live("SBIconView"), isOld() ? views : views - 1) << "the new generation finds no view";
  home.openRenameDialog(other);
  EXPECT_EQ(home.live("RenameIcon"), 1);
  EXPECT_EQ(home.live("SBApplicationIcon"), icons - 1);
  EXPECT_EQ(home.live("SBIconView"), views - 1);
}

TEST_P(Renaming, ADownloadMayEndWhileADialogIsUp) {
  home->startDownload("com.example.coming");
  home.openRenameDialog();
  home->removeDownload("com.example.coming").advance(1);
  home->type("New").tap("Apply");
  EXPECT_EQ(label(), "New");
}

// Many in a row

class ManyRenames : public Renaming {
 protected:
  static constexpr int rounds = 50;
  void expectFlat(const std::function<void()>& round) {
    round();
    home->advance(1);
    const auto first = home->live();
    for (int i = 0; i < rounds; ++i) round();
    home->advance(1);
    EXPECT_EQ(home->live(), first);
  }
};
INSTANTIATE_TEST_SUITE_P(, ManyRenames, test::bothGenerations, test::generationName);

TEST_P(ManyRenames, AppliedLeaveNothing) {
  int i = 0;
  expectFlat([&] { home.rename(app, "Name " + std::to_string(++i)); });
  EXPECT_EQ(label(), "Name 51");
  EXPECT_EQ(home.live("RenameIcon"), 0);
  EXPECT_EQ(home.live("UIAlertController"), 0);
  EXPECT_EQ(home.live("blocks"), 0);
}

TEST_P(ManyRenames, CancelledLeaveNothing) {
  expectFlat([&] {
    home.openRenameDialog();
    home->tap("Cancel");
  });
  EXPECT_EQ(home.live("RenameIcon"), 0);
  EXPECT_EQ(home.live("UIAlertController"), 0);
  EXPECT_EQ(home.live("blocks"), 0);
}

TEST_P(ManyRenames, ReplacedBeforeTheirDialogLeaveTheLastAlone) {
  home->animations(false);
  expectFlat([&] {
    home.openMenuInSpite();
    home->advance(1);
    home->tap("Rename App").advance(0.1);
    home.openRenameDialog(other);
  });
  EXPECT_EQ(home.live("RenameIcon"), 1);
  EXPECT_EQ(home.live("UIAlertController"), 1);
}

TEST_P(ManyRenames, ReplacedByLockingLeaveTheLastAlone) {
  expectFlat([&] {
    home.openRenameDialog();
    home->lock().unlock();
  });
  EXPECT_EQ(home.live("RenameIcon"), 1);
  EXPECT_EQ(home.live("UIAlertController"), 1);
  EXPECT_EQ(home.live("UIWindow"), 0);
}

// Core libraries before version 1000

class RenamingLongAgo : public test::OldGeneration {
 protected:
  void start(double coreVersion) {
    home.options().coreVersion = coreVersion;
    home.install({});
  }
};

TEST_F(RenamingLongAgo, ThePreferencesDomainIsSetFromVersionThousandOn) {
  start(1000.0);
  home.rename(app, "New");
  EXPECT_EQ(home->preferences(domain).value().text(app), "New");
  test::Home before(sim::Generation::old, {.coreVersion = 999.9});
  before.rename(other, "New");
  EXPECT_FALSE(before->preferences(domain).has_value());
  EXPECT_EQ(before.storedName(other), "New");
  EXPECT_EQ(before.icon(other).label, "New");
}

TEST_F(RenamingLongAgo, AnIconThatKnowsNoLocationsIsAskedForItsOneName) {
  start(999);
  home.openMenu();
  home->advance(1);
  home->tap("Rename App");
  const auto calls = home.callsDuring([&] { home->advance(1); });
  EXPECT_TRUE(has(calls, "SBApplicationIcon", "displayName"));
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "displayNameForLocation:"));
  EXPECT_EQ(home.alert().textFields[0].text, "Test App");
}

// There the icon's own name is the application's, which shows its new one throughout.
TEST_F(RenamingLongAgo, TheApplicationItselfAnswersWithItsNewNameToTheDialogToo) {
  start(999);
  home.rename(app, "Stored");
  EXPECT_EQ(home.icon(app).label, "Stored");
  const auto calls = home.callsDuring([&] { home.openRenameDialog(); });
  EXPECT_EQ(home.alert().message, "Stored");
  EXPECT_FALSE(has(calls, "SBApplicationIcon", "leafIdentifier")) << "the icon's part is bypassed";
}
