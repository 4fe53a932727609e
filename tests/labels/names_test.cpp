// Where a stored name is shown instead of the system's.
#include "tests/support/home.hpp"

namespace {

const std::string app = "com.example.test";

class Names : public test::Generations {
 protected:
  void SetUp() override { home.install({}); }
  // Every place that asks for the name anew.
  void expectAsked(const std::string& name) {
    const auto screen = home->launch(app).home().screen();
    EXPECT_EQ(screen.icon(app)->spoken, name);
    EXPECT_EQ(screen.switcher, std::vector<std::string>{name});
    home.openMenu();
    if (home.showsAlert()) {
      EXPECT_EQ(home.alert().title, name);
      home->tap("Cancel").advance(1);
    }
  }
  // The label is read when its view is made.
  std::string freshLabel() {
    home->respring();
    return home.icon(app).label;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Names, test::bothGenerations, test::generationName);

TEST_P(Names, WithoutAFileAreTheSystems) {
  expectAsked("Test App");
  EXPECT_EQ(home.icon(app).label, "Test App");
}

TEST_P(Names, AreReadFromTheFileEachTimeTheyAreAsked) {
  expectAsked("Test App");
  home.storeFromOutside(app, "From Outside");
  expectAsked("From Outside");
  home.storeFromOutside(app, "Changed Again");
  expectAsked("Changed Again");
  std::filesystem::remove(home.settingsFile());
  expectAsked("Test App");
}

TEST_P(Names, ALabelKeepsWhatItShowsUntilItIsReadAnew) {
  home.storeFromOutside(app, "From Outside");
  EXPECT_EQ(home.icon(app).label, "From Outside") << "stored before the first look";
  home.storeFromOutside(app, "Later");
  home->lock().unlock().home();
  EXPECT_EQ(home.icon(app).label, "From Outside");
  EXPECT_EQ(freshLabel(), "Later");
}

TEST_P(Names, AnIconThatComesLaterHasItsStoredNameAtOnce) {
  home.storeFromOutside(app, "Back Again");
  home.uninstall(app);
  EXPECT_EQ(home.screen().icon(app), nullptr);
  home.install({});
  EXPECT_EQ(home.icon(app).label, "Back Again");
}

TEST_P(Names, ADownloadingIconShowsItsStoredName) {
  home.storeFromOutside("com.example.coming", "On Its Way");
  home->startDownload("com.example.coming");
  EXPECT_EQ(home.icon("com.example.coming").label, "On Its Way");
}

TEST_P(Names, AreFoundByTheExactIdentifier) {
  home.storeFromOutside("com.example.Test", "Upper");
  home.storeFromOutside("com.example.tes", "Shorter");
  home.storeFromOutside("com.example.test.more", "Longer");
  home.storeFromOutside("Test App", "By Name");
  expectAsked("Test App");
  EXPECT_EQ(freshLabel(), "Test App");
}

TEST_P(Names, OfWebPagesAreTheirOwn) {
  const std::string title = "Garden Diary";
  home.storeFromOutside(title, "Never");
  home.storeFromOutside("", "Never");
  home->rescan();
  bool found = false;
  for (const auto& icon : home.screen().icons) {
    if (icon.kind != "bookmark") continue;
    found = true;
    EXPECT_EQ(icon.label, title);
    EXPECT_EQ(icon.spoken, title);
  }
  EXPECT_TRUE(found);
}

TEST_P(Names, AreNotShownWhileSwitchedOffAndComeBack) {
  home.rename(app, "Stored");
  const auto stored = [&] { return home.storedName(app); };
  home.settings({"enabled=false"});
  expectAsked("Test App");
  EXPECT_EQ(freshLabel(), "Test App");
  expectAsked("Test App");
  EXPECT_EQ(stored(), "Stored");
  home.settings({"enabled=true"});
  expectAsked("Stored");
  EXPECT_EQ(freshLabel(), "Stored");
  EXPECT_EQ(stored(), "Stored");
}

TEST_P(Names, DoNotDisturbTheSettings) {
  home.storeFromOutside(app, "NO");
  home.settings({"direction=1", "useBadge=false"});
  home->swipe(app, {{0, 20}});
  EXPECT_EQ(home.alert().title, "NO");
  EXPECT_TRUE(home.hasButton("Set Badges"));
  EXPECT_FALSE(home.hasButton("Clear Badges"));
}

// Setting keys and names share the file. Such applications do not exist; should one come, the home screen stays up.
TEST_P(Names, AnApplicationNamedLikeASettingShowsNoSettingAsItsName) {
  for (const std::string key : {"hideLabel", "slideValue", "direction"})
    home.install({.id = key, .name = "Named " + key, .folder = key + ".app"});
  home.settings({"hideLabel=false", "slideValue=0.5", "direction=0"});
  for (const std::string key : {"hideLabel", "slideValue", "direction"}) {
    EXPECT_EQ(home.icon(key).label, "Named " + key);
    EXPECT_EQ(home.icon(key).spoken, "Named " + key);
  }
}

TEST_P(Names, ANameInASettingsPlaceIsReadAsThatSetting) {
  home.install({.id = "direction", .name = "Compass", .folder = "Compass.app"});
  home.rename("direction", "1");
  EXPECT_EQ(home.icon("direction").label, "1");
  home->post("com.morvanel.sprigdial.preferencechanged");
  home.openMenu();
  EXPECT_FALSE(home.showsAlert());
  home->swipe(app, {{0, 20}});
  EXPECT_EQ(home.alert().title, "Test App");
  home->tap("Cancel").advance(1);
  home->swipe("direction", {{0, 20}});
  home->tap("Rename App").advance(1);
  home->type("North").tap("Apply");
  home->post("com.morvanel.sprigdial.preferencechanged");
  EXPECT_EQ(home.icon("direction").label, "North");
  home.openMenu();
  EXPECT_TRUE(home.showsAlert()) << "a word is no direction, so it is the first one";
}
