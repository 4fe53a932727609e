// The entry in the platform's quick-action list.
#include "tests/support/home.hpp"

namespace {

const std::string app = "com.example.test";

class Shortcut : public test::Generations {
 protected:
  void SetUp() override { home.settings({"useForce=true"}); }
  std::vector<sim::QuickAction> listOf(const std::string& id) {
    home->forceTouch(id);
    const auto list = home.screen().quickActions;
    return list ? list->entries : std::vector<sim::QuickAction>{};
  }
};

test::App appWithQuickActions() {
  return {.info = {{"UIApplicationShortcutItems",
                    {{{"UIApplicationShortcutItemTitle", "New Note"}, {"UIApplicationShortcutItemType", "new"}},
                     {{"UIApplicationShortcutItemTitle", "Search"}, {"UIApplicationShortcutItemType", "search"}}}}}};
}

using ShortcutOld = test::OldGeneration;
using ShortcutNew = test::NewGeneration;

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Shortcut, test::bothGenerations, test::generationName);

TEST_P(Shortcut, IsTheLastEntry) {
  home.install(appWithQuickActions());
  const auto entries = listOf(app);
  ASSERT_GE(entries.size(), 3U);
  EXPECT_EQ(entries[0].title, "New Note");
  EXPECT_EQ(entries[1].title, "Search");
  EXPECT_EQ(entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, ComesOnceHoweverOftenTheListIsOpened) {
  home.install(appWithQuickActions());
  listOf(app);
  home->home();
  int count = 0;
  for (const auto& entry : listOf(app)) count += entry.title == "Sprigdial" ? 1 : 0;
  EXPECT_EQ(count, 1);
}

TEST_P(Shortcut, IsThereForAnApplicationWithoutQuickActions) {
  home.install({});
  ASSERT_FALSE(listOf(app).empty());
  EXPECT_EQ(home.screen().quickActions->entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, OpensTheMenuAtOnce) {
  home.install({});
  home->forceTouch(app);
  home->choose("Sprigdial");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.screen().frontmost, "");
}

TEST_P(Shortcut, DoesNotLaunchTheApplication) {
  home.install({});
  home->forceTouch(app);
  home->choose("Sprigdial");
  EXPECT_TRUE(home->launches().empty());
}

TEST_P(Shortcut, LeavesOtherEntriesToThePlatform) {
  home.install(appWithQuickActions());
  home->forceTouch(app);
  home->choose("Search");
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home.screen().frontmost, app);
}

TEST_P(Shortcut, IsAbsentWithUseForceOff) {
  home.install(appWithQuickActions());
  home.settings({"useForce=false"});
  for (const auto& entry : listOf(app)) EXPECT_NE(entry.title, "Sprigdial");
  home->choose("Search");
  EXPECT_EQ(home.screen().frontmost, app);
}

TEST_P(Shortcut, IsAbsentWhenSwitchedOff) {
  home.install(appWithQuickActions());
  home.settings({"enabled=false"});
  for (const auto& entry : listOf(app)) EXPECT_NE(entry.title, "Sprigdial");
}

TEST_P(Shortcut, IsThereWithoutItsPicture) {
  home.install({});
  std::filesystem::remove_all(home.path("/Library/PreferenceBundles/SprigdialSettings.bundle"));
  const auto entries = listOf(app);
  ASSERT_FALSE(entries.empty());
  EXPECT_EQ(entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, ActsOnTheApplicationOfTheList) {
  home.install({});
  home->touch("com.example.notes");
  home->forceTouch(app);
  home->choose("Sprigdial");
  EXPECT_EQ(home.alert().title, "Test App");
}

TEST_P(Shortcut, AnApplicationsOwnEntryOfTheSameTypeAndAnotherTitle) {
  home.install({.info = {{"UIApplicationShortcutItems",
                          {{{"UIApplicationShortcutItemTitle", "Impostor"},
                            {"UIApplicationShortcutItemType", "SprigdialItem"}}}}}});
  home->forceTouch(app);
  home->choose("Impostor");
  // The old home screen tells entries by their type alone.
  EXPECT_EQ(home.showsAlert(), isOld());
  EXPECT_EQ(home.screen().frontmost, isOld() ? "" : app);
}

// Types and titles are the applications' own affair.
TEST_P(Shortcut, EntriesWhoseTypeOrTitleIsNoTextBringNothingDown) {
  using Json = nlohmann::ordered_json;
  for (const Json& value : {Json(5), Json(true), Json::array({"SprigdialItem"}), Json{{"a", "Sprigdial"}}}) {
    SCOPED_TRACE(value.dump());
    home.install({.info = {{"UIApplicationShortcutItems",
                            Json::array({{{"UIApplicationShortcutItemTitle", "Strange"},
                                          {"UIApplicationShortcutItemType", value}},
                                         {{"UIApplicationShortcutItemTitle", value},
                                          {"UIApplicationShortcutItemType", "SprigdialItem"}}})}}});
    auto entries = listOf(app);
    ASSERT_GE(entries.size(), 3U);
    EXPECT_EQ(entries.back().title, "Sprigdial");
    home->choose("Strange");
    EXPECT_FALSE(home.showsAlert());
    EXPECT_EQ(home.screen().frontmost, app);
    home->home();
    home->forceTouch(app).choose(entries[1].title);
    EXPECT_EQ(home.showsAlert(), isOld());
    home->lock().unlock().home().advance(2);
  }
}

TEST_F(ShortcutOld, PictureIsATintedTemplate) {
  home.settings({"useForce=true"});
  home.install({});
  home->forceTouch(app);
  EXPECT_EQ(home.screen().quickActions->entries.back().image,
            "/Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial.png (template)");
}

TEST_F(ShortcutOld, OtherEntriesAndAnEntryThatIsNotOursGetNoPicture) {
  home.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "New Note"}, {"UIApplicationShortcutItemType", "new"}},
                  {{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  home.settings({"useForce=true"});
  home->forceTouch(app);
  EXPECT_EQ(home.screen().quickActions->entries[0].image, "");
  home.settings({"useForce=false"});
  home->home();
  home->forceTouch(app);
  EXPECT_EQ(home.screen().quickActions->entries[1].image, "");
}

// The list's application becomes the current one, whatever was touched meanwhile.
TEST_F(ShortcutOld, TheListsApplicationIsTheMenus) {
  const std::string identifier = "SBUIAppIconForceTouchControllerDataProvider applicationBundleIdentifier";
  home.options().interposed = {identifier};
  home.settings({"useForce=true"});
  home.install({});
  home->home();
  home->interpose(identifier, {{"do", "perform"}, {"requests", {{{"verb", "touch"}, {"id", "com.example.notes"}}}}});
  home->forceTouch(app).choose("Sprigdial");
  EXPECT_EQ(home.alert().title, "Test App");
}

TEST_F(ShortcutNew, AnApplicationsOwnEntryOfTheSameTitleAndAnotherType) {
  home.settings({"useForce=true"});
  home.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  home->forceTouch(app).choose("Sprigdial");
  EXPECT_FALSE(home.showsAlert());
  EXPECT_EQ(home.screen().frontmost, app);
}

TEST_P(Shortcut, LeavesNothingBehind) {
  home.install({});
  const auto look = [&] {
    listOf(app);
    home->home();
  };
  look();
  const auto before = home->live();
  for (int time = 0; time < 5; ++time) look();
  EXPECT_EQ(home->live(), before);
}

TEST_F(ShortcutOld, AnyActionOfThatTitleGetsThePicture) {
  home.settings({"useForce=true"});
  home.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  home->forceTouch(app);
  EXPECT_NE(home.screen().quickActions->entries[0].image, "");
}

TEST_F(ShortcutOld, TheListNamesTheApplicationWithoutATouch) {
  home.settings({"useForce=true"});
  home.install({});
  home->forceTouch(app);
  home->home();
  home->perform("showAlertView");
  EXPECT_EQ(home.alert().title, "Test App");
}

TEST_F(ShortcutOld, TheListKeepsTheSwipeAway) {
  home->forceTouch("com.example.notes");
  home.swipeUp("com.example.notes");
  EXPECT_FALSE(home.showsAlert());
  home->home();
  home.swipeUp("com.example.notes");
  EXPECT_TRUE(home.showsAlert());
}

TEST_F(ShortcutOld, TheListsStateIsAskedTwiceEachTime) {
  home->forceTouch("com.example.notes");
  const auto asked = home->ask("platform").at("forceTouchStateAsked").get<long>();
  EXPECT_GT(asked, 0);
  EXPECT_EQ(asked % 2, 0);
}

TEST_F(ShortcutNew, PictureIsHandedOverAsPng) {
  home.settings({"useForce=true"});
  home.install({});
  home->forceTouch(app);
  const auto size =
      std::filesystem::file_size(home.path("/Library/PreferenceBundles/SprigdialSettings.bundle/icon@3x.png"));
  EXPECT_EQ(home.screen().quickActions->entries.back().image, "PNG of " + std::to_string(size) + " bytes");
}

TEST_F(ShortcutNew, IsAbsentBeforeAnApplicationsIconWasTouched) {
  home.settings({"useForce=true"});
  home->forceTouch("Garden Diary");
  const auto list = home.screen().quickActions;
  for (const auto& entry : list ? list->entries : std::vector<sim::QuickAction>{}) EXPECT_NE(entry.title, "Sprigdial");
  home->home();
  home->forceTouch("com.example.notes");
  EXPECT_EQ(home.screen().quickActions->entries.back().title, "Sprigdial");
}
