// The action sheet: title, message, window, guards and every entry with its conditions.
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "tests/support/home.hpp"

namespace {

const std::string app = "com.example.test";

class ActionMenu : public test::Generations {};

const std::vector<std::string> allSettings{"openFilza",      "useRename",  "useBadge",  "useCustom", "useCache",
                                           "useBackUp",      "useRestore", "delBackUp", "useReset",  "useCopyID",
                                           "useCopySchemes", "useMute",    "openApp"};

// An application for which every entry holds.
void prepareForAll(test::Home& home) {
  home.install({});
  home.setBadge(app, 4);
  std::filesystem::create_directories(home.path("/var/mobile/Documents/Sprigdial/" + app));
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(, ActionMenu, test::bothGenerations, test::generationName);

TEST_P(ActionMenu, ShowsEveryEntryThatHoldsInOrder) {
  prepareForAll(home);
  home.openMenu();
  const std::vector<std::string> expected{
      "Open in Filza [App]", "Open in Filza [Data]", "Rename App",        "Clear Badges",       "Set Badges",
      "Clear Caches(0 MB)",  "Backup Data",          "Restore Data",      "Delete Backup Data", "Remove All User Data",
      "Copy BundleID",       "Copy URL Schemes",     "Mute Notification", "Open App",           "Cancel"};
  EXPECT_EQ(home.buttons(), expected);
}

TEST_P(ActionMenu, EntriesAreDefaultButTheLast) {
  prepareForAll(home);
  home.openMenu();
  const auto buttons = home.alert().buttons;
  for (const auto& button : buttons) EXPECT_EQ(button.style, button.title == "Cancel" ? "cancel" : "default");
}

TEST_P(ActionMenu, IsAnActionSheetWithNameAndVersion) {
  home.install({});
  home.openMenu();
  EXPECT_EQ(home.alert().style, "action sheet");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "com.example.test Ver.2.5");
}

TEST_P(ActionMenu, EachSettingHidesItsOwnEntries) {
  const std::map<std::string, std::vector<std::string>> entriesOf{
      {"openFilza", {"Open in Filza [App]", "Open in Filza [Data]"}},
      {"useRename", {"Rename App"}},
      {"useBadge", {"Clear Badges"}},
      {"useCustom", {"Set Badges"}},
      {"useCache", {"Clear Caches(0 MB)"}},
      {"useBackUp", {"Backup Data"}},
      {"useRestore", {"Restore Data"}},
      {"delBackUp", {"Delete Backup Data"}},
      {"useReset", {"Remove All User Data"}},
      {"useCopyID", {"Copy BundleID"}},
      {"useCopySchemes", {"Copy URL Schemes"}},
      {"useMute", {"Mute Notification"}},
      {"openApp", {"Open App"}}};
  prepareForAll(home);
  home.openMenu();
  const auto all = home.buttons();
  for (const auto& [setting, entries] : entriesOf) {
    home->tap("Cancel");
    home->advance(1);
    home.settings({setting + "=false"});
    home.openMenu();
    auto expected = all;
    for (const auto& entry : entries) std::erase(expected, entry);
    EXPECT_EQ(home.buttons(), expected) << setting;
    home.settings({setting + "=true"});
  }
}

TEST_P(ActionMenu, WithEverySettingOffHoldsOnlyCancel) {
  prepareForAll(home);
  std::vector<std::string> pairs;
  for (const auto& key : allSettings) pairs.push_back(key + "=false");
  home.settings(pairs);
  home.openMenu();
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"Cancel"});
}

TEST_P(ActionMenu, WithoutFileManagerHasNoFilzaEntries) {
  home.install({});
  home.removeFileManager();
  home.openMenu();
  EXPECT_FALSE(home.hasButton("Open in Filza [App]"));
  EXPECT_FALSE(home.hasButton("Open in Filza [Data]"));
}

TEST_P(ActionMenu, BlankInTheBundlePathHidesTheAppFolderButNotTheVersion) {
  home.install({.folder = "My Test.app"});
  home.openMenu();
  EXPECT_FALSE(home.hasButton("Open in Filza [App]"));
  EXPECT_TRUE(home.hasButton("Open in Filza [Data]"));
  EXPECT_EQ(home.alert().message, "com.example.test Ver.2.5");
}

TEST_P(ActionMenu, WithoutBadgeHasNoClearBadges) {
  home.install({});
  home.openMenu();
  EXPECT_FALSE(home.hasButton("Clear Badges"));
  EXPECT_TRUE(home.hasButton("Set Badges"));
}

TEST_P(ActionMenu, ATextBadgeIsABadgeToo) {
  home.install({});
  home.setBadge(app, "new");
  home.openMenu();
  EXPECT_TRUE(home.hasButton("Clear Badges"));
}

TEST_P(ActionMenu, WithoutCachesFolderHasNeitherCacheNorReset) {
  home.install({.hasCaches = false});
  home.openMenu();
  for (const auto& title : home.buttons()) EXPECT_EQ(title.find("Clear Caches"), std::string::npos);
  EXPECT_FALSE(home.hasButton("Remove All User Data"));
  EXPECT_TRUE(home.hasButton("Backup Data"));
}

TEST_P(ActionMenu, WithoutDataContainerHasNoDataEntries) {
  home.install({.hasContainer = false});
  home.openMenu();
  EXPECT_TRUE(home.hasButton("Open in Filza [App]"));
  EXPECT_FALSE(home.hasButton("Open in Filza [Data]"));
  EXPECT_FALSE(home.hasButton("Backup Data"));
  EXPECT_FALSE(home.hasButton("Remove All User Data"));
}

TEST_P(ActionMenu, BackupEntriesFollowTheBackupFolder) {
  home.install({});
  home.openMenu();
  EXPECT_FALSE(home.hasButton("Restore Data"));
  EXPECT_FALSE(home.hasButton("Delete Backup Data"));
  home->tap("Cancel");
  home->advance(1);
  std::filesystem::create_directories(home.path("/var/mobile/Documents/Sprigdial/" + app));
  home.openMenu();
  EXPECT_TRUE(home.hasButton("Restore Data"));
  EXPECT_TRUE(home.hasButton("Delete Backup Data"));
}

TEST_P(ActionMenu, UnknownVersionKeepsItsBlank) {
  home.install({.info = {{"CFBundleShortVersionString", nullptr}}});
  home.openMenu();
  EXPECT_EQ(home.alert().message, "com.example.test Ver. Unknown");
}

TEST_P(ActionMenu, UnreadableInfoGivesAnUnknownVersion) {
  home.install({});
  home.swipeUp(app, 0, -0.5);
  const auto info = home.bundle(app) / "Info.plist";
  for (const auto* content : {"", "garbage", "<plist><array/></plist>"}) {
    sim::writeFile(info, content);
    home.openMenu();
    EXPECT_EQ(home.alert().message, "com.example.test Ver. Unknown") << content;
    home->tap("Cancel");
    home->advance(1);
  }
}

TEST_P(ActionMenu, AVersionThatIsANumberIsShownAsItReads) {
  home.install({.info = {{"CFBundleShortVersionString", 7}}});
  home.openMenu();
  EXPECT_EQ(home.alert().message, "com.example.test Ver.7");
}

TEST_P(ActionMenu, VersionsOfAnyKindBringNothingDown) {
  home.install({.info = {{"CFBundleShortVersionString", {{"a", 1}}}}});
  home.openMenu();
  EXPECT_EQ(home.alert().message->rfind("com.example.test Ver.", 0), 0U);
}

TEST_P(ActionMenu, NamesOutsideAsciiAreShownAsTheyAre) {
  home.install({.name = "Čtečka 😀 é"});
  home.openMenu();
  EXPECT_EQ(home.alert().title, "Čtečka 😀 é");
}

TEST_P(ActionMenu, StandsInAWindowJustBelowTheSystemsAlerts) {
  home.install({});
  home.openMenu();
  const auto windows = home.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, (sim::Frame{0, 0, 375, 667}));
}

TEST_P(ActionMenu, ReplacesTheWindowOfTheLast) {
  home.install({});
  home.openMenu();
  home->advance(2);
  home.openMenu("com.example.notes");
  const auto windows = home.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].alert->title, "Notes");
}

TEST_P(ActionMenu, CancelLeavesNothingBehind) {
  home.install({});
  home.openMenu();
  home->tap("Cancel");
  EXPECT_TRUE(home.screen().windows.empty());
  home->advance(1);
  EXPECT_EQ(home.live("UIAlertController"), 0);
  EXPECT_EQ(home.live("UIAlertAction"), 0);
  EXPECT_EQ(home.live("UIViewController"), 0);
  EXPECT_EQ(home.live("blocks"), 0);
}

TEST_P(ActionMenu, EveryEntryClosesTheWindowFirst) {
  prepareForAll(home);
  home.openMenu();
  for (const auto& title : home.buttons()) {
    home->logMessages(true);
    const auto before = home->calls().size();
    home->tap(title);
    auto calls = home->calls();
    home->logMessages(false);
    calls.erase(calls.begin(), calls.begin() + static_cast<long>(before));
    ASSERT_FALSE(calls.empty()) << title;
    EXPECT_EQ(calls[0].className, "UIWindow") << title;
    EXPECT_EQ(calls[0].selector, "setHidden:") << title;
    home->advance(2);
    home->lock();
    home->unlock();
    home.openMenu();
  }
}

TEST_P(ActionMenu, ASecondOneHasToWait) {
  home.install({});
  home.openMenu();
  home->tap("Cancel");
  home->advance(test::presentation + 0.8 - (test::presentation + test::dismissal) - 0.01);
  home.openMenu();
  EXPECT_FALSE(home.showsAlert());
  home->advance(0.02);
  home.openMenu();
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(ActionMenu, TheWaitBeginsWhenThePresentationEnds) {
  home.install({});
  home.openMenu();
  home->advance(test::presentation + 0.79);
  home.openMenu("com.example.notes");
  EXPECT_EQ(home.alert().title, "Test App");
  home->advance(0.02);
  home.openMenu("com.example.notes");
  EXPECT_EQ(home.alert().title, "Notes");
}

TEST_P(ActionMenu, NothingHappensWithoutACurrentApplication) {
  home->perform("showAlertView");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(ActionMenu, NothingHappensWhenSwitchedOff) {
  home.install({});
  home.swipeUp(app, 0, -0.5);
  home.settings({"enabled=false"});
  home->perform("showAlertView");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(ActionMenu, AnApplicationThatIsOnlyBeingInstalledHasNoMenu) {
  home->startDownload("com.example.placeholder");
  home.swipeUp("com.example.placeholder");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(ActionMenu, ATabletShowsAPopoverWithoutArrow) {
  home.options().tablet = true;
  home.install({});
  home.openMenu();
  const auto popover = home.alert().popover;
  ASSERT_TRUE(popover);
  EXPECT_TRUE(popover->sourceIsRootView);
  EXPECT_EQ(popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(popover->arrowDirections, 0U);
}

TEST_P(ActionMenu, CacheFilesBelowAnyDepthAreCounted) {
  home.install({});
  home.addCache(app, "a/b/c/.hidden", 1 << 20);
  home.addCache(app, "d", 1 << 20);
  home.openMenu();
  // Folders count with the size that the file system gives them.
  std::uint64_t total = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(home.container(app) / "Library/Caches")) {
    struct stat info {};
    ASSERT_EQ(lstat(entry.path().c_str(), &info), 0);
    total += static_cast<std::uint64_t>(info.st_size);
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f", static_cast<double>(static_cast<float>(total) / 1048576.0F));
  std::string size = text.data();
  // Where folders are small, what they add is not seen: the title then tells whole megabytes.
  if (size.ends_with(".00")) size = std::to_string(total >> 20);
  EXPECT_EQ(home.cacheTitle(), "Clear Caches(" + size + " MB)");
}

TEST_P(ActionMenu, WithoutShowSizeTheCacheTitleIsPlain) {
  home.install({});
  home.addCache(app, "file", 3 << 20);
  home.settings({"showSize=false"});
  home.openMenu();
  EXPECT_EQ(home.cacheTitle(), "Clear Caches");
}

struct CacheTitle {
  std::uint64_t bytes;
  std::string title;
};

class CacheTitles : public testing::TestWithParam<std::tuple<sim::Generation, CacheTitle>> {};

TEST_P(CacheTitles, AreWrittenAsMegabytes) {
  const auto& [generation, expected] = GetParam();
  test::Home home(generation);
  home.install({});
  if (expected.bytes > 0) home.addCache(app, "file", expected.bytes);
  home.openMenu();
  EXPECT_EQ(home.cacheTitle(), expected.title);
}

INSTANTIATE_TEST_SUITE_P(
    , CacheTitles,
    testing::Combine(
        test::bothGenerations,
        testing::Values(CacheTitle{0, "Clear Caches(0 MB)"}, CacheTitle{1, "Clear Caches(0 MB)"},
                        CacheTitle{5242, "Clear Caches(0 MB)"}, CacheTitle{5243, "Clear Caches(0.01 MB)"},
                        CacheTitle{104858, "Clear Caches(0.10 MB)"}, CacheTitle{1048576, "Clear Caches(1 MB)"},
                        CacheTitle{1572864, "Clear Caches(1.50 MB)"}, CacheTitle{2097000, "Clear Caches(1 MB)"},
                        CacheTitle{2097152, "Clear Caches(2 MB)"}, CacheTitle{3638559, "Clear Caches(3.47 MB)"},
                        CacheTitle{1056440, "Clear Caches(1.01 MB)"},
                        // Exactly between two hundredths: the even one.
                        CacheTitle{131072, "Clear Caches(0.12 MB)"}, CacheTitle{393216, "Clear Caches(0.38 MB)"},
                        CacheTitle{104857600, "Clear Caches(100 MB)"}, CacheTitle{105067315, "Clear Caches(100.20 MB)"},
                        CacheTitle{5368709120, "Clear Caches(5120 MB)"})));

TEST_P(ActionMenu, AnUnreadableCacheEntryAddsNothing) {
  home.install({});
  home.addCache(app, "seen", 1572864);
  home.addCache(app, "locked/unseen", 1 << 20);
  const auto locked = home.container(app) / "Library/Caches/locked";
  std::filesystem::permissions(locked, std::filesystem::perms::none);
  home.openMenu();
  EXPECT_EQ(home.cacheTitle().substr(0, 17), "Clear Caches(1.50");
  std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
}

TEST_P(ActionMenu, SymbolicLinksInCachesAreNotFollowed) {
  home.install({});
  const auto caches = home.container(app) / "Library/Caches";
  home.addCache(app, "file", 1572864);
  std::filesystem::create_symlink(".", caches / "loop");
  std::filesystem::create_symlink("/usr", caches / "away");
  home.openMenu();
  EXPECT_EQ(home.cacheTitle().substr(0, 17), "Clear Caches(1.50");
}
