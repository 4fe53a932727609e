// The action sheet: title, message, window, guards and every entry with its conditions.
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "tests/support/phone.hpp"

namespace {

const std::string app = "com.example.test";

class ActionMenu : public test::Generations {};

const std::vector<std::string> allSettings{"openFilza",      "useRename",  "useBadge",  "useCustom", "useCache",
                                           "useBackUp",      "useRestore", "delBackUp", "useReset",  "useCopyID",
                                           "useCopySchemes", "useMute",    "openApp"};

// An application for which every entry holds.
void prepareForAll(test::Phone& phone) {
  phone.install({});
  phone.setBadge(app, 4);
  std::filesystem::create_directories(phone.path("/var/mobile/Documents/Sprigdial/" + app));
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(, ActionMenu, test::bothGenerations, test::generationName);

TEST_P(ActionMenu, ShowsEveryEntryThatHoldsInOrder) {
  prepareForAll(phone);
  phone.openMenu();
  const std::vector<std::string> expected{
      "Open in Filza [App]", "Open in Filza [Data]", "Rename App",        "Clear Badges",       "Set Badges",
      "Clear Caches(0 MB)",  "Backup Data",          "Restore Data",      "Delete Backup Data", "Remove All User Data",
      "Copy BundleID",       "Copy URL Schemes",     "Mute Notification", "Open App",           "Cancel"};
  EXPECT_EQ(phone.buttons(), expected);
}

TEST_P(ActionMenu, EntriesAreDefaultButTheLast) {
  prepareForAll(phone);
  phone.openMenu();
  const auto buttons = phone.alert().buttons;
  for (const auto& button : buttons) EXPECT_EQ(button.style, button.title == "Cancel" ? "cancel" : "default");
}

TEST_P(ActionMenu, IsAnActionSheetWithNameAndVersion) {
  phone.install({});
  phone.openMenu();
  EXPECT_EQ(phone.alert().style, "action sheet");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "com.example.test Ver.2.5");
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
  prepareForAll(phone);
  phone.openMenu();
  const auto all = phone.buttons();
  for (const auto& [setting, entries] : entriesOf) {
    phone.tap("Cancel");
    phone.advance(1);
    phone.settings({setting + "=false"});
    phone.openMenu();
    auto expected = all;
    for (const auto& entry : entries) std::erase(expected, entry);
    EXPECT_EQ(phone.buttons(), expected) << setting;
    phone.settings({setting + "=true"});
  }
}

TEST_P(ActionMenu, WithEverySettingOffHoldsOnlyCancel) {
  prepareForAll(phone);
  std::vector<std::string> pairs;
  for (const auto& key : allSettings) pairs.push_back(key + "=false");
  phone.settings(pairs);
  phone.openMenu();
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"Cancel"});
}

TEST_P(ActionMenu, WithoutFileManagerHasNoFilzaEntries) {
  phone.install({});
  phone.removeFileManager();
  phone.openMenu();
  EXPECT_FALSE(phone.hasButton("Open in Filza [App]"));
  EXPECT_FALSE(phone.hasButton("Open in Filza [Data]"));
}

TEST_P(ActionMenu, BlankInTheBundlePathHidesTheAppFolderButNotTheVersion) {
  phone.install({.folder = "My Test.app"});
  phone.openMenu();
  EXPECT_FALSE(phone.hasButton("Open in Filza [App]"));
  EXPECT_TRUE(phone.hasButton("Open in Filza [Data]"));
  EXPECT_EQ(phone.alert().message, "com.example.test Ver.2.5");
}

TEST_P(ActionMenu, WithoutBadgeHasNoClearBadges) {
  phone.install({});
  phone.openMenu();
  EXPECT_FALSE(phone.hasButton("Clear Badges"));
  EXPECT_TRUE(phone.hasButton("Set Badges"));
}

TEST_P(ActionMenu, ATextBadgeIsABadgeToo) {
  phone.install({});
  phone.setBadge(app, "new");
  phone.openMenu();
  EXPECT_TRUE(phone.hasButton("Clear Badges"));
}

TEST_P(ActionMenu, WithoutCachesFolderHasNeitherCacheNorReset) {
  phone.install({.hasCaches = false});
  phone.openMenu();
  for (const auto& title : phone.buttons()) EXPECT_EQ(title.find("Clear Caches"), std::string::npos);
  EXPECT_FALSE(phone.hasButton("Remove All User Data"));
  EXPECT_TRUE(phone.hasButton("Backup Data"));
}

TEST_P(ActionMenu, WithoutDataContainerHasNoDataEntries) {
  phone.install({.hasContainer = false});
  phone.openMenu();
  EXPECT_TRUE(phone.hasButton("Open in Filza [App]"));
  EXPECT_FALSE(phone.hasButton("Open in Filza [Data]"));
  EXPECT_FALSE(phone.hasButton("Backup Data"));
  EXPECT_FALSE(phone.hasButton("Remove All User Data"));
}

TEST_P(ActionMenu, BackupEntriesFollowTheBackupFolder) {
  phone.install({});
  phone.openMenu();
  EXPECT_FALSE(phone.hasButton("Restore Data"));
  EXPECT_FALSE(phone.hasButton("Delete Backup Data"));
  phone.tap("Cancel");
  phone.advance(1);
  std::filesystem::create_directories(phone.path("/var/mobile/Documents/Sprigdial/" + app));
  phone.openMenu();
  EXPECT_TRUE(phone.hasButton("Restore Data"));
  EXPECT_TRUE(phone.hasButton("Delete Backup Data"));
}

TEST_P(ActionMenu, UnknownVersionKeepsItsBlank) {
  phone.install({.info = {{"CFBundleShortVersionString", nullptr}}});
  phone.openMenu();
  EXPECT_EQ(phone.alert().message, "com.example.test Ver. Unknown");
}

TEST_P(ActionMenu, UnreadableInfoGivesAnUnknownVersion) {
  phone.install({});
  phone.touch(app);
  const auto info = phone.bundle(app) / "Info.plist";
  for (const auto* content : {"", "garbage", "<plist><array/></plist>"}) {
    sim::writeFile(info, content);
    phone.openMenu();
    EXPECT_EQ(phone.alert().message, "com.example.test Ver. Unknown") << content;
    phone.tap("Cancel");
    phone.advance(1);
  }
}

TEST_P(ActionMenu, AVersionThatIsANumberIsShownAsItReads) {
  phone.install({.info = {{"CFBundleShortVersionString", 7}}});
  phone.openMenu();
  EXPECT_EQ(phone.alert().message, "com.example.test Ver.7");
}

TEST_P(ActionMenu, VersionsOfAnyKindBringNothingDown) {
  phone.install({.info = {{"CFBundleShortVersionString", {{"a", 1}}}}});
  phone.openMenu();
  EXPECT_EQ(phone.alert().message->rfind("com.example.test Ver.", 0), 0U);
}

TEST_P(ActionMenu, NamesOutsideAsciiAreShownAsTheyAre) {
  phone.install({.name = "Čtečka 😀 é"});
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "Čtečka 😀 é");
}

TEST_P(ActionMenu, StandsInAWindowJustBelowTheSystemsAlerts) {
  phone.install({});
  phone.openMenu();
  const auto windows = phone.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].level, 1999);
  EXPECT_TRUE(windows[0].key);
  EXPECT_EQ(windows[0].frame, bounds());
}

TEST_P(ActionMenu, ReplacesTheWindowOfTheLast) {
  phone.install({});
  phone.openMenu();
  phone.advance(2);
  phone.openMenuInSpite("com.example.notes");
  const auto windows = phone.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].alert->title, "Notes");
}

TEST_P(ActionMenu, CancelLeavesNothingBehind) {
  phone.install({});
  phone.openMenu();
  phone.tap("Cancel");
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.advance(1);
  EXPECT_EQ(phone.live("UIAlertController"), 0);
  EXPECT_EQ(phone.live("UIAlertAction"), 0);
  EXPECT_EQ(phone.live("UIViewController"), 0);
  EXPECT_EQ(phone.live("blocks"), 0);
}

TEST_P(ActionMenu, EveryEntryClosesTheWindowFirst) {
  prepareForAll(phone);
  phone.openMenu();
  for (const auto& title : phone.buttons()) {
    phone.logMessages(true);
    const auto before = phone.calls().size();
    phone.tap(title);
    auto calls = phone.calls();
    phone.logMessages(false);
    calls.erase(calls.begin(), calls.begin() + static_cast<long>(before));
    ASSERT_FALSE(calls.empty()) << title;
    EXPECT_EQ(calls[0].className, "UIWindow") << title;
    EXPECT_EQ(calls[0].selector, "setHidden:") << title;
    phone.advance(2);
    phone.lock();
    phone.unlock().home();
    phone.openMenu();
  }
}

TEST_P(ActionMenu, ASecondOneHasToWait) {
  phone.install({});
  phone.openMenu();
  phone.tap("Cancel");
  phone.advance(test::presentation + 0.8 - (test::presentation + test::dismissal) - 0.01);
  phone.openMenu();
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(0.02);
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(ActionMenu, TheWaitBeginsWhenThePresentationEnds) {
  phone.install({});
  phone.openMenu();
  phone.advance(test::presentation + 0.79);
  phone.openMenuInSpite("com.example.notes");
  EXPECT_EQ(phone.alert().title, "Test App");
  phone.advance(0.02);
  phone.openMenuInSpite("com.example.notes");
  EXPECT_EQ(phone.alert().title, "Notes");
}

TEST_P(ActionMenu, NothingHappensWithoutACurrentApplication) {
  phone.perform("showAlertView");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(ActionMenu, NothingHappensWhenSwitchedOff) {
  phone.install({});
  phone.touch(app);
  phone.settings({"enabled=false"});
  phone.perform("showAlertView");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(ActionMenu, AnApplicationThatIsOnlyBeingInstalledHasNoMenu) {
  phone.startDownload("com.example.placeholder");
  phone.swipeUp("com.example.placeholder");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(ActionMenu, ATabletShowsAPopoverWithoutArrow) {
  phone.options().tablet = true;
  phone.install({});
  phone.openMenu();
  const auto popover = phone.alert().popover;
  ASSERT_TRUE(popover);
  EXPECT_TRUE(popover->sourceIsRootView);
  EXPECT_EQ(popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(popover->arrowDirections, 0U);
}

TEST_P(ActionMenu, CacheFilesBelowAnyDepthAreCounted) {
  phone.install({});
  phone.addCache(app, "a/b/c/.hidden", 1 << 20);
  phone.addCache(app, "d", 1 << 20);
  phone.openMenu();
  // Folders count with the size that the file system gives them.
  std::uint64_t total = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(phone.container(app) / "Library/Caches")) {
    struct stat info {};
    ASSERT_EQ(lstat(entry.path().c_str(), &info), 0);
    total += static_cast<std::uint64_t>(info.st_size);
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f", static_cast<double>(static_cast<float>(total) / 1048576.0F));
  std::string size = text.data();
  // Where folders are small, what they add is not seen: the title then tells whole megabytes.
  if (size.ends_with(".00")) size = std::to_string(total >> 20);
  EXPECT_EQ(phone.cacheTitle(), "Clear Caches(" + size + " MB)");
}

TEST_P(ActionMenu, WithoutShowSizeTheCacheTitleIsPlain) {
  phone.install({});
  phone.addCache(app, "file", 3 << 20);
  phone.settings({"showSize=false"});
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle(), "Clear Caches");
}

struct CacheTitle {
  std::uint64_t bytes;
  std::string title;
};

class CacheTitles : public testing::TestWithParam<std::tuple<sim::Generation, CacheTitle>> {};

TEST_P(CacheTitles, AreWrittenAsMegabytes) {
  const auto& [generation, expected] = GetParam();
  test::Phone phone(generation);
  phone.install({});
  if (expected.bytes > 0) phone.addCache(app, "file", expected.bytes);
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle(), expected.title);
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
  phone.install({});
  phone.addCache(app, "seen", 1572864);
  phone.addCache(app, "locked/unseen", 1 << 20);
  const auto locked = phone.container(app) / "Library/Caches/locked";
  std::filesystem::permissions(locked, std::filesystem::perms::none);
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle().substr(0, 17), "Clear Caches(1.50");
  std::filesystem::permissions(locked, std::filesystem::perms::owner_all);
}

TEST_P(ActionMenu, SymbolicLinksInCachesAreNotFollowed) {
  phone.install({});
  const auto caches = phone.container(app) / "Library/Caches";
  phone.addCache(app, "file", 1572864);
  std::filesystem::create_symlink(".", caches / "loop");
  std::filesystem::create_symlink("/usr", caches / "away");
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle().substr(0, 17), "Clear Caches(1.50");
}
