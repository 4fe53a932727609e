// Clearing caches and resetting data.
#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
const std::string app = "com.example.test";

class Caches : public test::Generations {
 protected:
  void SetUp() override {
    phone.install({});
    phone.addCache(app, "image", 2048);
    phone.addCache(app, "folder/deep/file", 10);
    phone.addCache(app, ".hidden", 10);
    phone.screen();  // starting up makes a file of its own
  }
  fs::path caches() { return phone.container(app) / "Library/Caches"; }
  void ask() {
    phone.openMenu();
    phone.tap(phone.cacheTitle());
  }
};

class Reset : public test::Generations {
 protected:
  void SetUp() override {
    phone.install({});
    data = phone.container(app);
    for (const auto* file : {"Library/Caches/a", "Library/Preferences/b.plist", "Library/Other/deep/c", "Documents/d",
                             "Documents/folder/e", "tmp/f", "SystemData/g"})
      sim::writeFile(data / file, file);
    phone.screen();  // starting up makes a file of its own
  }
  void ask() {
    phone.openMenu();
    phone.tap("Remove All User Data");
  }
  fs::path data;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Caches, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, Reset, test::bothGenerations, test::generationName);

TEST_P(Caches, AreClearedAfterAQuestion) {
  ask();
  EXPECT_EQ(phone.alert().style, "alert");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "Are you sure you want to clear the caches?");
  EXPECT_EQ(phone.buttons(), (std::vector<std::string>{"YES", "Cancel"}));
  EXPECT_EQ(phone.alert().buttons[0].style, "default");
  EXPECT_EQ(phone.alert().buttons[1].style, "cancel");
  EXPECT_EQ(phone.screen().windows.back().level, 1999);
  phone.tap("YES");
  EXPECT_TRUE(fs::is_directory(caches()));
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
  EXPECT_EQ(phone.alert().buttons[0].style, "default");
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  phone.tap("OK");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Caches, CancelKeepsEverything) {
  const auto before = test::filesBelow(phone.device().root() / "var");
  ask();
  phone.tap("Cancel");
  EXPECT_TRUE(phone.screen().windows.empty());
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
}

TEST_P(Caches, AnEntryThatCannotGoDoesNotStopTheRest) {
  fs::permissions(caches() / "folder", fs::perms::owner_read | fs::perms::owner_exec);
  ask();
  phone.tap("YES");
  EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
  fs::permissions(caches() / "folder", fs::perms::owner_all);
  EXPECT_TRUE(fs::exists(caches() / "folder"));
  EXPECT_FALSE(fs::exists(caches() / "image"));
  EXPECT_FALSE(fs::exists(caches() / ".hidden"));
}

TEST_P(Caches, AnEmptyOrMissingFolderIsASuccessToo) {
  for (const bool missing : {false, true}) {
    phone.touch(app);
    fs::remove_all(caches());
    if (!missing) fs::create_directories(caches());
    phone.perform("clearCaches");
    phone.tap("YES");
    EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
    phone.tap("OK");
  }
}

TEST_P(Caches, LinksAreRemovedNotWhatTheyPointTo) {
  fs::create_symlink(phone.container(app) / "Documents", caches() / "link");
  sim::writeFile(phone.container(app) / "Documents/keep", "x");
  ask();
  phone.tap("YES");
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_TRUE(fs::exists(phone.container(app) / "Documents/keep"));
}

TEST_P(Caches, NothingElseOnTheDeviceChanges) {
  auto expected = test::filesBelow(phone.device().root() / "var");
  ask();
  phone.tap("YES");
  const std::string below = caches().string() + "/";
  std::erase_if(expected, [&](const auto& file) { return file.first.starts_with(below); });
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), expected);
}

TEST_P(Caches, AnUnknownApplicationIsCalledNull) {
  phone.touch(app);
  fs::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.perform("clearCaches");
  EXPECT_EQ(phone.alert().title, "(null)");
  phone.tap("YES");
  EXPECT_EQ(phone.alert().title, "(null)");
  EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
}

TEST_P(Caches, WithoutAContainerNothingComesOrGoes) {
  phone.install({.id = "com.example.bare", .hasContainer = false});
  phone.touch("com.example.bare");
  const auto before = test::filesBelow(phone.device().root());
  for (const auto* operation : {"clearCaches", "resetAppData"}) {
    phone.perform(operation);
    phone.tap("YES");
    phone.tap("OK");
  }
  EXPECT_EQ(test::filesBelow(phone.device().root()), before);
}

TEST_P(Caches, TheFolderIsTheOneOfWhenTheQuestionWasAsked) {
  ask();
  phone.touchInSpite("com.example.notes");
  const auto notes = test::filesBelow(phone.container("com.example.notes"));
  phone.tap("YES");
  EXPECT_TRUE(fs::is_empty(caches()));
  EXPECT_EQ(phone.alert().title, "Notes");  // the result tells of what is current now
  EXPECT_EQ(test::filesBelow(phone.container("com.example.notes")), notes);
}

// A name is a name, whatever it would mean elsewhere.
TEST_P(Caches, OfAnyNameAreCountedAndCleared) {
  const std::vector<std::string> names{"C:", "a:b",   "b",   "\\", "\\\\host\\share", "back\\slash",
                                       "~",  "~root", "-rf", " ",  "a%20b",           "…"};
  for (const auto& name : names) sim::writeFile(caches() / name, std::string(1 << 20, 'x'));
  phone.addCache(app, "C:folder/a:b", 1 << 20);
  phone.openMenu();
  const auto title = phone.cacheTitle();
  EXPECT_TRUE(title.starts_with("Clear Caches(" + std::to_string(names.size() + 1))) << title;
  phone.tap(title).tap("YES");
  EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
  EXPECT_TRUE(fs::is_empty(caches()));
}

TEST_P(Caches, AFolderThatCannotBeListedIsASuccessToo) {
  ask();
  fs::permissions(caches(), fs::perms::none);
  phone.tap("YES");
  EXPECT_EQ(phone.alert().message, "Cache cleared successfully");
  fs::permissions(caches(), fs::perms::owner_all);
  EXPECT_TRUE(fs::exists(caches() / "image"));
}

TEST_P(Caches, ASecondAlertReplacesTheFirst) {
  ask();
  phone.advance(1);  // the menu itself is gone
  phone.perform("resetAppData");
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.alert().title, "Warning");
  EXPECT_EQ(phone.live("UIAlertController"), 1);
}

TEST_P(Reset, EmptiesTheTwoFoldersAndMakesTwoAgain) {
  ask();
  EXPECT_EQ(phone.alert().title, "Warning");
  EXPECT_EQ(phone.alert().message, "Are you sure you want to reset Test App's data?");
  EXPECT_EQ(phone.buttons(), (std::vector<std::string>{"YES", "Cancel"}));
  phone.tap("YES");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::is_empty(data / "Documents"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Caches"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Preferences"));
  EXPECT_FALSE(fs::exists(data / "Library/Other"));
  EXPECT_TRUE(fs::exists(data / "tmp/f"));
  EXPECT_TRUE(fs::exists(data / "SystemData/g"));
}

TEST_P(Reset, CancelChangesNothing) {
  const auto before = test::filesBelow(phone.device().root() / "var");
  ask();
  phone.tap("Cancel");
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Reset, DoesNotMakeAMissingDocumentsFolder) {
  fs::remove_all(data / "Documents");
  ask();
  phone.tap("YES");
  EXPECT_EQ(phone.alert().message, "Reset data successfully");
  EXPECT_FALSE(fs::exists(data / "Documents"));
  EXPECT_TRUE(fs::exists(data / "Library/Caches"));
}

TEST_P(Reset, MakesTheTwoFoldersEvenWithoutALibrary) {
  ask();
  fs::remove_all(data / "Library");
  phone.tap("YES");
  EXPECT_EQ(phone.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::is_directory(data / "Library/Caches"));
  EXPECT_TRUE(fs::is_directory(data / "Library/Preferences"));
}

TEST_P(Reset, AnEntryThatCannotGoDoesNotStopTheRest) {
  fs::permissions(data / "Library/Other/deep", fs::perms::owner_read | fs::perms::owner_exec);
  ask();
  phone.tap("YES");
  fs::permissions(data / "Library/Other/deep", fs::perms::owner_all);
  EXPECT_EQ(phone.alert().message, "Reset data successfully");
  EXPECT_TRUE(fs::exists(data / "Library/Other/deep/c"));
  EXPECT_TRUE(fs::is_empty(data / "Documents"));
  EXPECT_TRUE(fs::is_empty(data / "Library/Preferences"));
}

TEST_P(Reset, NamesTheApplicationHoweverItsNameEnds) {
  phone.install({.id = "com.example.news", .name = "The News"});
  phone.touch("com.example.news");
  phone.perform("resetAppData");
  EXPECT_EQ(phone.alert().message, "Are you sure you want to reset The News's data?");
}

TEST_P(Reset, AnUnknownApplicationIsCalledNull) {
  phone.touch(app);
  fs::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  const auto before = test::filesBelow(phone.device().root());
  phone.perform("resetAppData");
  EXPECT_EQ(phone.alert().message, "Are you sure you want to reset (null)'s data?");
  phone.tap("YES");
  EXPECT_EQ(phone.alert().message, "Reset data successfully");
  EXPECT_EQ(test::filesBelow(phone.device().root()), before);
}

TEST_P(Reset, TouchesNothingOutsideTheContainer) {
  auto expected = test::filesBelow(phone.device().root() / "var");
  ask();
  phone.tap("YES");
  auto after = test::filesBelow(phone.device().root() / "var");
  const auto inside = [&](const auto& file) { return file.first.rfind(data.string() + "/", 0) == 0; };
  std::erase_if(expected, inside);
  std::erase_if(after, inside);
  EXPECT_EQ(after, expected);
}
