// The entry in the platform's quick-action list.
#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";

class Shortcut : public test::Generations {
 protected:
  void SetUp() override { phone.settings({"useForce=true"}); }
  std::vector<sim::QuickAction> listOf(const std::string& id) {
    phone.forceTouch(id);
    const auto list = phone.screen().quickActions;
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
  phone.install(appWithQuickActions());
  const auto entries = listOf(app);
  ASSERT_GE(entries.size(), 3U);
  EXPECT_EQ(entries[0].title, "New Note");
  EXPECT_EQ(entries[1].title, "Search");
  EXPECT_EQ(entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, ComesOnceHoweverOftenTheListIsOpened) {
  phone.install(appWithQuickActions());
  listOf(app);
  phone.home();
  int count = 0;
  for (const auto& entry : listOf(app)) count += entry.title == "Sprigdial" ? 1 : 0;
  EXPECT_EQ(count, 1);
}

TEST_P(Shortcut, IsThereForAnApplicationWithoutQuickActions) {
  phone.install({});
  ASSERT_FALSE(listOf(app).empty());
  EXPECT_EQ(phone.screen().quickActions->entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, OpensTheMenuAtOnce) {
  phone.install({});
  phone.forceTouch(app);
  phone.choose("Sprigdial");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.screen().frontmost, "");
}

TEST_P(Shortcut, DoesNotLaunchTheApplication) {
  phone.install({});
  phone.forceTouch(app);
  phone.choose("Sprigdial");
  EXPECT_TRUE(phone.launches().empty());
}

TEST_P(Shortcut, LeavesOtherEntriesToThePlatform) {
  phone.install(appWithQuickActions());
  phone.forceTouch(app);
  phone.choose("Search");
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.screen().frontmost, app);
}

TEST_P(Shortcut, IsAbsentWithUseForceOff) {
  phone.install(appWithQuickActions());
  phone.settings({"useForce=false"});
  for (const auto& entry : listOf(app)) EXPECT_NE(entry.title, "Sprigdial");
  phone.choose("Search");
  EXPECT_EQ(phone.screen().frontmost, app);
}

TEST_P(Shortcut, IsAbsentWhenSwitchedOff) {
  phone.install(appWithQuickActions());
  phone.settings({"enabled=false"});
  for (const auto& entry : listOf(app)) EXPECT_NE(entry.title, "Sprigdial");
}

TEST_P(Shortcut, IsThereWithoutItsPicture) {
  phone.install({});
  std::filesystem::remove_all(phone.path("/Library/PreferenceBundles/SprigdialSettings.bundle"));
  const auto entries = listOf(app);
  ASSERT_FALSE(entries.empty());
  EXPECT_EQ(entries.back().title, "Sprigdial");
}

TEST_P(Shortcut, ActsOnTheApplicationOfTheList) {
  phone.install({});
  phone.touch("com.example.notes");
  phone.forceTouch(app);
  phone.choose("Sprigdial");
  EXPECT_EQ(phone.alert().title, "Test App");
}

TEST_P(Shortcut, AnApplicationsOwnEntryOfTheSameTypeAndAnotherTitle) {
  phone.install({.info = {{"UIApplicationShortcutItems",
                           {{{"UIApplicationShortcutItemTitle", "Impostor"},
                             {"UIApplicationShortcutItemType", "SprigdialItem"}}}}}});
  phone.forceTouch(app);
  phone.choose("Impostor");
  // The old home screen tells entries by their type alone.
  EXPECT_EQ(phone.showsAlert(), isOld());
  EXPECT_EQ(phone.screen().frontmost, isOld() ? "" : app);
}

// Types and titles are the applications' own affair.
TEST_P(Shortcut, EntriesWhoseTypeOrTitleIsNoTextBringNothingDown) {
  using Json = nlohmann::ordered_json;
  for (const Json& value : {Json(5), Json(true), Json::array({"SprigdialItem"}), Json{{"a", "Sprigdial"}}}) {
    SCOPED_TRACE(value.dump());
    phone.install({.info = {{"UIApplicationShortcutItems",
                             Json::array({{{"UIApplicationShortcutItemTitle", "Strange"},
                                           {"UIApplicationShortcutItemType", value}},
                                          {{"UIApplicationShortcutItemTitle", value},
                                           {"UIApplicationShortcutItemType", "SprigdialItem"}}})}}});
    auto entries = listOf(app);
    ASSERT_GE(entries.size(), 3U);
    EXPECT_EQ(entries.back().title, "Sprigdial");
    phone.choose("Strange");
    EXPECT_FALSE(phone.showsAlert());
    EXPECT_EQ(phone.screen().frontmost, app);
    phone.home();
    phone.forceTouch(app).choose(entries[1].title);
    EXPECT_EQ(phone.showsAlert(), isOld());
    phone.lock().unlock().home().advance(2);
  }
}

TEST_F(ShortcutOld, PictureIsATintedTemplate) {
  phone.settings({"useForce=true"});
  phone.install({});
  phone.forceTouch(app);
  EXPECT_EQ(phone.screen().quickActions->entries.back().image,
            "/Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial.png (template)");
}

TEST_F(ShortcutOld, OtherEntriesAndAnEntryThatIsNotOursGetNoPicture) {
  phone.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "New Note"}, {"UIApplicationShortcutItemType", "new"}},
                  {{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  phone.settings({"useForce=true"});
  phone.forceTouch(app);
  EXPECT_EQ(phone.screen().quickActions->entries[0].image, "");
  phone.settings({"useForce=false"});
  phone.home();
  phone.forceTouch(app);
  EXPECT_EQ(phone.screen().quickActions->entries[1].image, "");
}

// The list's application becomes the current one, whatever was touched meanwhile.
TEST_F(ShortcutOld, TheListsApplicationIsTheMenus) {
  const std::string identifier = "SBUIAppIconForceTouchControllerDataProvider applicationBundleIdentifier";
  phone.options().interposed = {identifier};
  phone.settings({"useForce=true"});
  phone.install({});
  phone.home();
  phone.interpose(identifier,
                  {{"do", "perform"}, {"requests", {{{"verb", "touch"}, {"members", {{"id", "com.example.notes"}}}}}}});
  phone.forceTouch(app).choose("Sprigdial");
  EXPECT_EQ(phone.alert().title, "Test App");
}

TEST_F(ShortcutNew, AnApplicationsOwnEntryOfTheSameTitleAndAnotherType) {
  phone.settings({"useForce=true"});
  phone.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  phone.forceTouch(app).choose("Sprigdial");
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(phone.screen().frontmost, app);
}

TEST_P(Shortcut, LeavesNothingBehind) {
  phone.install({});
  const auto look = [&] {
    listOf(app);
    phone.home();
  };
  look();
  const auto before = phone.live();
  for (int time = 0; time < 5; ++time) look();
  EXPECT_EQ(phone.live(), before);
}

TEST_F(ShortcutOld, AnyActionOfThatTitleGetsThePicture) {
  phone.settings({"useForce=true"});
  phone.install(
      {.info = {{"UIApplicationShortcutItems",
                 {{{"UIApplicationShortcutItemTitle", "Sprigdial"}, {"UIApplicationShortcutItemType", "mine"}}}}}});
  phone.forceTouch(app);
  EXPECT_NE(phone.screen().quickActions->entries[0].image, "");
}

TEST_F(ShortcutOld, TheListNamesTheApplicationWithoutATouch) {
  phone.settings({"useForce=true"});
  phone.install({});
  phone.forceTouch(app);
  phone.home();
  phone.perform("showAlertView");
  EXPECT_EQ(phone.alert().title, "Test App");
}

TEST_F(ShortcutOld, TheListKeepsTheSwipeAway) {
  phone.forceTouch("com.example.notes");
  phone.openMenuInSpite("com.example.notes");
  EXPECT_FALSE(phone.showsAlert());
  phone.home();
  phone.swipeUp("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
}

TEST_F(ShortcutOld, TheListsStateIsAskedTwiceEachTime) {
  phone.forceTouch("com.example.notes");
  const auto asked = phone.ask("platform").at("forceTouchStateAsked").get<long>();
  EXPECT_GT(asked, 0);
  EXPECT_EQ(asked % 2, 0);
}

TEST_F(ShortcutNew, PictureIsHandedOverAsPng) {
  phone.settings({"useForce=true"});
  phone.install({});
  phone.forceTouch(app);
  const auto size =
      std::filesystem::file_size(phone.path("/Library/PreferenceBundles/SprigdialSettings.bundle/icon@3x.png"));
  EXPECT_EQ(phone.screen().quickActions->entries.back().image, "PNG of " + std::to_string(size) + " bytes");
}

TEST_F(ShortcutNew, IsAbsentBeforeAnApplicationsIconWasTouched) {
  phone.settings({"useForce=true"});
  phone.forceTouch("Garden Diary");
  const auto list = phone.screen().quickActions;
  for (const auto& entry : list ? list->entries : std::vector<sim::QuickAction>{}) EXPECT_NE(entry.title, "Sprigdial");
  phone.home();
  phone.forceTouch("com.example.notes");
  EXPECT_EQ(phone.screen().quickActions->entries.back().title, "Sprigdial");
}
