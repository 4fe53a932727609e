// Clearing caches and resetting data.
#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;
const std::string app = "com.example.test";

class Caches : public test::Generations {
 protected:
  void SetUp() override {
    home.install({});
    home.addCache(app, "image", 2048);
    home.addCache(app, "folder/deep/file", 10);
    home.addCache(app, ".hidden", 10);
    home.screen();  // starting up makes a file of its own
  }
  fs::path caches() { return home.container(app) / "Library/Caches"; }
  void ask() {
    home.openMenu();
    home->tap(home.cacheTitle());
  }
};

class Reset : public test::Generations {
 protected:
  void SetUp() override {
    home.install({});
    data = home.container(app);
    for (const auto* file : {"Library/Caches/a", "Library/Preferences/b.plist", "Library/Other/deep/c", "Documents/d",
                             "Documents/folder/e", "tmp/f", "SystemData/g"})
      sim::writeFile(data / file, file);
    home.screen();  // starting up makes a file of its own
  }
  void ask() {
    home.openMenu();
    home->tap("Remove All User Data");
  }
  fs::path data;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Caches, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, Reset, test::bothGenerations, test::generationName);

TEST_P(Caches, AreClearedAfterAQuestion) {
  ask();
  EXPECT_EQ(home.alert().style, "alert");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "Are you sure you want to clear the caches?");
  EXPECT_EQ(home.buttons(), (std::vector<std::string>{"YES", "Cancel"}));
  EXPECT_EQ(home.alert().buttons[0].style, "default");
  EXPECT_EQ(home.alert().buttons[1].style, "cancel");
  EXPECT_EQ(home.screen().windows.back().level, 1999);
  home->tap("YES");
  EXPECT_TRUE(fs::is_directory(caches()));
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "Cache cleared successfully");
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"OK"});
  EXPECT_EQ(home.alert().buttons[0].style, "default");
  EXPECT_EQ(home.screen().windows.size(), 1U);
  home->tap("OK");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Caches, CancelKeepsEverything) {
  const auto before = test::filesBelow(home.device().root() / "var");
  ask();
  home->tap("Cancel");
  EXPECT_TRUE(home.screen().windows.empty());
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), before);
}

TEST_P(Caches, AnEntryThatCannotGoDoesNotStopTheRest) {
  fs::permissions(caches() / "folder", fs::perms::owner_read | fs::perms::owner_exec);
  ask();
  home->tap("YES");
  EXPECT_EQ(home.alert().message, "Cache cleared successfully");
  fs::permissions(caches() / "folder", fs::perms::owner_all);
  EXPECT_TRUE(fs::exists(caches() / "folder"));
  EXPECT_FALSE(fs::exists(caches() / "image"));
  EXPECT_FALSE(fs::exists(caches() / ".hidden"));
}

TEST_P(Caches, AnEmptyOrMissingFolderIsASuccessToo) {
  for (const bool missing : {false, true}) {
    home.swipeUp(app, 0, -0.5);
    fs::remove_all(caches());
    if (!missing) fs::create_directories(caches());
    home->perform("clearCaches");
    home->tap("YES");
    EXPECT_EQ(home.alert().message, "Cache cleared successfully");
    home->tap("OK");
  }
}

TEST_P(Caches, LinksAreRemovedNotWhatTheyPointTo) {
  fs::create_symlink(home.container(app) / "Documents", caches() / "link");
  sim::writeFile(home.container(app) / "Documents/keep", "x");
  ask();
  home->tap("YES");
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_TRUE(fs::exists(home.container(app) / "Documents/keep"));
}

TEST_P(Caches, NothingElseOnTheDeviceChanges) {
  auto expected = test::filesBelow(home.device().root() / "var");
  ask();
  home->tap("YES");
  const std::string below = caches().string() + "/";
  std::erase_if(expected, [&](const auto& file) { return file.first.starts_with(below); });
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), expected);
}

TEST_P(Caches, AnUnknownApplicationIsCalledNull) {
  home.swipeUp(app, 0, -0.5);
  fs::remove_all(home.bundle(app).parent_path());
  home->rescan();
  home->perform("clearCaches");
  EXPECT_EQ(home.alert().title, "(null)");
  home->tap("YES");
  EXPECT_EQ(home.alert().title, "(null)");
  EXPECT_EQ(home.alert().message, "Cache cleared successfully");
}

TEST_P(Caches, WithoutAContainerNothingComesOrGoes) {
  home.install({.id = "com.example.bare", .hasContainer = false});
  home.swipeUp("com.example.bare", 0, -0.5);
  const auto before = test::filesBelow(home.device().root());
  for (const auto* operation : {"clearCaches", "resetAppData"}) {
    home->perform(operation);
    home->tap("YES");
    home->tap("OK");
  }
  EXPECT_EQ(test::filesBelow(home.device().root()), before);
}

TEST_P(Caches, TheFolderIsTheOneOfWhenTheQuestionWasAsked) {
  ask();
  home.touchInSpite("com.example.notes");
  const auto notes = test::filesBelow(home.container("com.example.notes"));
  home->tap("YES");
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_EQ(home.alert().title, "Notes");  // the result tells of what is current now
  EXPECT_EQ(test::filesBelow(home.container("com.example.notes")), notes);
}

// A name is a name, whatever it would mean elsewhere.
TEST_P(Caches, OfAnyNameAreCountedAndCleared) {
  const std::vector<std::string> names{"C:", "a:b",   "b",   "\\", "\\\\host\\share", "back\\slash",
                                       "~",  "~root", "-rf", " ",  "a%20b",           "…"};
  for (const auto& name : names) sim::writeFile(caches() / name, std::string(1 << 20, 'x'));
  home.addCache(app, "C:folder/a:b", 1 << 20);
  home.openMenu();
  const auto title = home.cacheTitle();
  EXPECT_TRUE(title.starts_with("Clear Caches(" + std::to_string(names.size() + 1))) << title;
  home->tap(title).tap("YES");
  EXPECT_EQ(home.alert().message, "Cache cleared successfully");
  EXPECT_TRUE(fs::is_empty(caches()));
}

TEST_P(Caches, AFolderThatCannotBeListedIsASuccessToo) {
  ask();
  fs::permissions(caches(), fs::perms::none);
  home->tap("YES");
  EXPECT_EQ(home.alert().message, "Cache cleared successfully");
  fs::permissions(caches(), fs::perms::owner_all);
  EXPECT_TRUE(fs::exists(caches() / "image"));
}

TEST_P(Caches, ASecondAlertReplacesTheFirst) {
  ask();
  home->advance(1);  // the menu itself is gone
  home->perform("resetAppData");
  EXPECT_EQ(home.screen().windows.size(), 1U);
  EXPECT_EQ(home.alert().title, "Warning");
  EXPECT_EQ(home.live("UIAlertController"), 1);
}

TEST_P(Reset, EmptiesTheTwoFoldersAndMakesTwoAgain) {
  ask();
  EXPECT_EQ(home.alert().title, "Warning");
  EXPECT_EQ(home.alert().message, "Are you sure you want to reset Test App's data?");
  EXPECT_EQ(home.buttons(), (std::vector<std::string>{"YES", "Cancel"}));
  home->tap("YES");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::is_empty(data / "Documents"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Caches"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Preferences"));
  EXPECT_FALSE(fs::exists(data / "Library/Other"));
  EXPECT_TRUE(fs::exists(data / "tmp/f"));
  EXPECT_TRUE(fs::exists(data / "SystemData/g"));
}

TEST_P(Reset, CancelChangesNothing) {
  const auto before = test::filesBelow(home.device().root() / "var");
  ask();
  home->tap("Cancel");
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), before);
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Reset, DoesNotMakeAMissingDocumentsFolder) {
  fs::remove_all(data / "Documents");
  ask();
  home->tap("YES");
  EXPECT_EQ(home.alert().message, "Reset data successfully");
  EXPECT_FALSE(fs::exists(data / "Documents"));
  EXPECT_TRUE(fs::exists(data / "Library/Caches"));
}

TEST_P(Reset, MakesTheTwoFoldersEvenWithoutALibrary) {
  ask();
  fs::remove_all(data / "Library");
  home->tap("YES");
  EXPECT_EQ(home.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::is_directory(data / "Library/Caches"));
  EXPECT_TRUE(fs::is_directory(data / "Library/Preferences"));
}

TEST_P(Reset, AnEntryThatCannotGoDoesNotStopTheRest) {
  fs::permissions(data / "Library/Other/deep", fs::perms::owner_read | fs::perms::owner_exec);
  ask();
  home->tap("YES");
  fs::permissions(data / "Library/Other/deep", fs::perms::owner_all);
  EXPECT_EQ(home.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::exists(data / "Library/Other/deep/c"));
  EXPECT_TRUE(fs::is_empty(data / "Documents"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Preferences"));
}

TEST_P(Reset, NamesTheApplicationHoweverItsNameEnds) {
  home.install({.id = "com.example.news", .name = "The News"});
  home.swipeUp("com.example.news", 0, -0.5);
  home->perform("resetAppData");
  EXPECT_EQ(home.alert().message, "Are you sure you want to reset The News's data?");
}

TEST_P(Reset, AnUnknownApplicationIsCalledNull) {
  home.swipeUp(app, 0, -0.5);
  fs::remove_all(home.bundle(app).parent_path());
  home->rescan();
  const auto before = test::filesBelow(home.device().root());
  home->perform("resetAppData");
  EXPECT_EQ(home.alert().message, "Are you sure you want to reset (null)'s data?");
  home->tap("YES");
  EXPECT_EQ(home.alert().message, "Reset data successfully");
  EXPECT_EQ(test::filesBelow(home.device().root()), before);
}

TEST_P(Reset, TouchesNothingOutsideTheContainer) {
  auto expected = test::filesBelow(home.device().root() / "var");
  ask();
  home->tap("YES");
  auto after = test::filesBelow(home.device().root() / "var");
  const auto inside = [&](const auto& file) { return file.first.rfind(data.string() + "/", 0) == 0; };
  std::erase_if(expected, inside);
  std::erase_if(after, inside);
  EXPECT_EQ(after, expected);
}
