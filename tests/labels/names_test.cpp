// Where a stored name is shown instead of the system's.
#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";

class Names : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }
  // Every place that asks for the name anew.
  void expectAsked(const std::string& name) {
    const auto screen = phone.launch(app).home().screen();
    EXPECT_EQ(screen.icon(app)->spoken, name);
    EXPECT_EQ(screen.switcher, std::vector<std::string>{name});
    phone.openMenu();
    if (phone.showsAlert()) {
      EXPECT_EQ(phone.alert().title, name);
      phone.tap("Cancel").advance(1);
    }
  }
  // The label is read when its view is made.
  std::string freshLabel() {
    phone.respring();
    return phone.icon(app).label;
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Names, test::bothGenerations, test::generationName);

TEST_P(Names, WithoutAFileAreTheSystems) {
  expectAsked("Test App");
  EXPECT_EQ(phone.icon(app).label, "Test App");
}

TEST_P(Names, AreReadFromTheFileEachTimeTheyAreAsked) {
  expectAsked("Test App");
  phone.storeFromOutside(app, "From Outside");
  expectAsked("From Outside");
  phone.storeFromOutside(app, "Changed Again");
  expectAsked("Changed Again");
  std::filesystem::remove(phone.settingsFile());
  expectAsked("Test App");
}

TEST_P(Names, ALabelKeepsWhatItShowsUntilItIsReadAnew) {
  phone.storeFromOutside(app, "From Outside");
  EXPECT_EQ(phone.icon(app).label, "From Outside") << "stored before the first look";
  phone.storeFromOutside(app, "Later");
  phone.lock().unlock().home();
  EXPECT_EQ(phone.icon(app).label, "From Outside");
  EXPECT_EQ(freshLabel(), "Later");
}

TEST_P(Names, AnIconThatComesLaterHasItsStoredNameAtOnce) {
  phone.storeFromOutside(app, "Back Again");
  phone.uninstall(app);
  EXPECT_EQ(phone.screen().icon(app), nullptr);
  phone.install({});
  EXPECT_EQ(phone.icon(app).label, "Back Again");
}

TEST_P(Names, ADownloadingIconShowsItsStoredName) {
  phone.storeFromOutside("com.example.coming", "On Its Way");
  phone.startDownload("com.example.coming");
  EXPECT_EQ(phone.icon("com.example.coming").label, "On Its Way");
}

TEST_P(Names, AreFoundByTheExactIdentifier) {
  phone.storeFromOutside("com.example.Test", "Upper");
  phone.storeFromOutside("com.example.tes", "Shorter");
  phone.storeFromOutside("com.example.test.more", "Longer");
  phone.storeFromOutside("Test App", "By Name");
  expectAsked("Test App");
  EXPECT_EQ(freshLabel(), "Test App");
}

TEST_P(Names, OfWebPagesAreTheirOwn) {
  const std::string title = "Garden Diary";
  phone.storeFromOutside(title, "Never");
  phone.storeFromOutside("", "Never");
  phone.rescan();
  bool found = false;
  for (const auto& icon : phone.screen().icons) {
    if (icon.kind != "bookmark") continue;
    found = true;
    EXPECT_EQ(icon.label, title);
    EXPECT_EQ(icon.spoken, title);
  }
  EXPECT_TRUE(found);
}

TEST_P(Names, AreNotShownWhileSwitchedOffAndComeBack) {
  phone.rename(app, "Stored");
  const auto stored = [&] { return phone.storedName(app); };
  phone.settings({"enabled=false"});
  expectAsked("Test App");
  EXPECT_EQ(freshLabel(), "Test App");
  expectAsked("Test App");
  EXPECT_EQ(stored(), "Stored");
  phone.settings({"enabled=true"});
  expectAsked("Stored");
  EXPECT_EQ(freshLabel(), "Stored");
  EXPECT_EQ(stored(), "Stored");
}

TEST_P(Names, DoNotDisturbTheSettings) {
  phone.storeFromOutside(app, "NO");
  phone.settings({"direction=1", "useBadge=false"});
  phone.swipe(app, {{0, 20}});
  EXPECT_EQ(phone.alert().title, "NO");
  EXPECT_TRUE(phone.hasButton("Set Badges"));
  EXPECT_FALSE(phone.hasButton("Clear Badges"));
}

// Setting keys and names share the file. Such applications do not exist; should one come, the home screen stays up.
TEST_P(Names, AnApplicationNamedLikeASettingShowsNoSettingAsItsName) {
  for (const std::string key : {"hideLabel", "slideValue", "direction"})
    phone.install({.id = key, .name = "Named " + key, .folder = key + ".app"});
  phone.settings({"hideLabel=false", "slideValue=0.5", "direction=0"});
  for (const std::string key : {"hideLabel", "slideValue", "direction"}) {
    EXPECT_EQ(phone.icon(key).label, "Named " + key);
    EXPECT_EQ(phone.icon(key).spoken, "Named " + key);
  }
}

TEST_P(Names, ANameInASettingsPlaceIsReadAsThatSetting) {
  phone.install({.id = "direction", .name = "Compass", .folder = "Compass.app"});
  phone.rename("direction", "1");
  EXPECT_EQ(phone.icon("direction").label, "1");
  phone.post("com.morvanel.sprigdial.preferencechanged");
  phone.openMenu();
  EXPECT_FALSE(phone.showsAlert());
  phone.swipe(app, {{0, 20}});
  EXPECT_EQ(phone.alert().title, "Test App");
  phone.tap("Cancel").advance(1);
  phone.swipe("direction", {{0, 20}});
  phone.tap("Rename App").advance(1);
  phone.type("North").tap("Apply");
  phone.post("com.morvanel.sprigdial.preferencechanged");
  EXPECT_EQ(phone.icon("direction").label, "North");
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert()) << "a word is no direction, so it is the first one";
}
