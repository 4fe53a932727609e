// Backing up, restoring and deleting backups, with the real archiver.
#include <sys/stat.h>

#include "tests/support/command.hpp"
#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;
const std::string app = "com.example.test";
const std::string store = "/var/mobile/Documents/Sprigdial/" + app;

class Backup : public test::Generations {
 protected:
  void SetUp() override {
    home.options().timeZone = "UTC";
    home.options().clock = 1709820309;  // 2024-03-07 14:05:09
    home.install({});
    data = home.container(app);
    sim::writeFile(data / "Documents/letter", "first");
    home.swipeUp(app, 0, -0.5);
  }
  std::vector<std::string> archives() {
    std::vector<std::string> names;
    if (fs::exists(home.path(store)))
      for (const auto& entry : fs::directory_iterator(home.path(store))) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  void makeArchives(const std::vector<std::string>& names) {
    for (const auto& name : names) sim::writeFile(home.path(store) / name, "");
  }
  void backUp() {
    home->perform("backUpData");
    EXPECT_EQ(home.alert().message, "BackUp data successfully");
    home->tap("OK");
  }
  void replaceArchiver(const std::string& script) {
    fs::remove(home.path("/usr/bin/tar"));
    if (script.empty()) return;
    sim::writeFile(home.path("/usr/bin/tar"), "#!/bin/sh\n" + script);
    fs::permissions(home.path("/usr/bin/tar"), fs::perms::all);
  }
  fs::path data;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Backup, test::bothGenerations, test::generationName);

TEST_P(Backup, MakesTheFolderAndOneArchive) {
  home.openMenu();
  home->tap("Backup Data");
  EXPECT_EQ(home.alert().style, "alert");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "BackUp data successfully");
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"OK"});
  EXPECT_EQ(archives(), std::vector<std::string>{"2024-03-07.14_05_09"});
  EXPECT_EQ(home.screen().windows.size(), 1U);
  home->tap("OK");
  home->advance(1);
  home.openMenu();
  EXPECT_TRUE(home.hasButton("Restore Data"));
  EXPECT_TRUE(home.hasButton("Delete Backup Data"));
}

TEST_P(Backup, ArchivesTheContainerUnderItsAbsolutePath) {
  backUp();
  const auto names = linesOf("tar tzf " + (home.path(store) / archives()[0]).string());
  const auto onPhone = home.device().application(app)->data.string().substr(1);
  EXPECT_EQ(names[0], onPhone + "/");
  EXPECT_NE(std::find(names.begin(), names.end(), onPhone + "/Documents/letter"), names.end());
}

TEST_P(Backup, TwoInOneSecondLeaveTheSecond) {
  backUp();
  sim::writeFile(data / "Documents/letter", "second");
  backUp();
  ASSERT_EQ(archives().size(), 1U);
  const auto lines = linesOf("tar xzOf " + (home.path(store) / archives()[0]).string() + " --wildcards '*letter'");
  EXPECT_EQ(lines, std::vector<std::string>{"second"});
}

TEST_P(Backup, IsNamedByLocalTimeAndTheWeeksYear) {
  struct Moment {
    double clock;
    const char* zone;
    const char* name;
  };
  for (const auto& [clock, zone, name] :
       {Moment{1735560000, "UTC", "2025-12-30.12_00_00"}, Moment{1735560000, "Asia/Tokyo", "2025-12-30.21_00_00"},
        Moment{1704067199, "UTC", "2024-12-31.23_59_59"},
        Moment{1672531200, "America/New_York", "2022-12-31.19_00_00"}}) {
    test::Home other(GetParam());
    other.options().timeZone = zone;
    other.options().clock = clock;
    other.install({});
    other.swipeUp(app, 0, -0.5);
    other->perform("backUpData");
    EXPECT_TRUE(fs::exists(other.path(store) / name)) << name;
  }
}

TEST_P(Backup, WithoutContainerTellsThatThereIsNothing) {
  fs::remove_all(data);
  home->perform("backUpData");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, "User data not found");
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"OK"});
  EXPECT_TRUE(fs::is_directory(home.path(store)));
  EXPECT_TRUE(archives().empty());
}

TEST_P(Backup, WithoutAFolderToWriteToTellsTheSame) {
  sim::writeFile(home.path("/var/mobile/Documents/Sprigdial"), "in the way");
  home->perform("backUpData");
  EXPECT_EQ(home.alert().message, "User data not found");
}

TEST_P(Backup, AFailingArchiverIsNotNoticed) {
  replaceArchiver("exit 2\n");
  backUp();
  EXPECT_TRUE(archives().empty());
}

TEST_P(Backup, AMissingArchiverLeavesTheOverlayUp) {
  replaceArchiver("");
  home->perform("backUpData");
  const auto windows = home.screen().windows;
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_FALSE(windows[0].alert);
  home->lock();
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Backup, ArchivesAreOfferedLatestFirst) {
  makeArchives({"2024-01-02.08_00_00", "2024-03-07.14_05_09", "2025-12-30.12_00_00"});
  home->perform("restoreData");
  EXPECT_EQ(home.alert().style, "action sheet");
  EXPECT_EQ(home.alert().title, "Test App");
  EXPECT_EQ(home.alert().message, app);
  EXPECT_EQ(home.buttons(),
            (std::vector<std::string>{"2025-12-30 12:00:00", "2024-03-07 14:05:09", "2024-01-02 08:00:00", "Cancel"}));
  home->tap("Cancel");
  home->perform("deleteBackUp");
  EXPECT_EQ(home.buttons().size(), 4U);
}

TEST_P(Backup, WithoutABackupBothSaySo) {
  for (const auto* operation : {"restoreData", "deleteBackUp"}) {
    home->perform(operation);
    EXPECT_EQ(home.alert().title, "Test App");
    EXPECT_EQ(home.alert().message, "Please Use BackUp first!");
    EXPECT_EQ(home.buttons(), std::vector<std::string>{"OK"});
    home->tap("OK");
  }
}

TEST_P(Backup, AnEmptyFolderIsAnEmptySheetForRestoreOnly) {
  fs::create_directories(home.path(store));
  home->perform("deleteBackUp");
  EXPECT_EQ(home.alert().message, "Please Use BackUp first!");
  home->tap("OK");
  home->perform("restoreData");
  EXPECT_EQ(home.buttons(), std::vector<std::string>{"Cancel"});
}

TEST_P(Backup, DeletingRemovesOneArchive) {
  makeArchives({"2024-01-02.08_00_00", "2024-03-07.14_05_09"});
  home->perform("deleteBackUp");
  home->tap("2024-01-02 08:00:00");
  EXPECT_EQ(archives(), std::vector<std::string>{"2024-03-07.14_05_09"});
  EXPECT_EQ(home.alert().message, "Delete data successfully");
  EXPECT_EQ(home.alert().title, "Test App");
  home->tap("OK");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Backup, AFailedDeletionIsSilent) {
  makeArchives({"stray file", "with:colon", "2024-01-02.08_00_00"});
  for (const auto* title : {"stray file", "with:colon"}) {
    home->perform("deleteBackUp");
    home->tap(title);
    EXPECT_FALSE(home.showsAlert());
    EXPECT_EQ(archives().size(), 3U);
  }
}

TEST_P(Backup, AStrayFileIsRestoredQuietlyAsNothing) {
  makeArchives({"-rf stray"});
  home->perform("restoreData");
  home->tap("-rf stray");
  EXPECT_EQ(home.alert().message, "Restore data successfully");
  EXPECT_FALSE(fs::exists(data));
}

TEST_P(Backup, ATabletShowsTheArchivesInAPopover) {
  test::Home tablet(GetParam());
  tablet.options().tablet = true;
  tablet.install({});
  fs::create_directories(tablet.path(store));
  tablet.swipeUp(app, 0, -0.5);
  tablet->perform("restoreData");
  ASSERT_TRUE(tablet.alert().popover);
  EXPECT_TRUE(tablet.alert().popover->sourceIsRootView);
  EXPECT_EQ(tablet.alert().popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
}

TEST_P(Backup, ARoundTripBringsEveryByteBack) {
  fs::create_directories(data / "Library/Caches/nested/deep");
  sim::writeFile(data / "Documents/Čtení 😀 é.txt", "text");
  sim::writeFile(data / "Documents/empty", "");
  sim::writeSparseFile(data / "Documents/sparse", 1 << 22);
  fs::create_symlink("letter", data / "Documents/link");
  fs::create_symlink("/nowhere", data / "Documents/dangling");
  sim::writeFile(data / "Documents/run.sh", "#!/bin/sh\n");
  fs::permissions(data / "Documents/run.sh", fs::perms(0751));
  fs::permissions(data / "Documents/letter", fs::perms(0600));
  for (int i = 0; i < 5000; ++i) sim::writeFile(data / "Library/many" / std::to_string(i), std::to_string(i * i));
  const auto before = test::filesBelow(data);

  backUp();
  fs::remove(data / "Documents/empty");
  sim::writeFile(data / "Documents/letter", "changed");
  sim::writeFile(data / "Documents/later", "not in the archive");
  fs::remove_all(data / "Library/many");
  home->perform("restoreData");
  home->tap("2024-03-07 14:05:09");
  EXPECT_EQ(home.alert().message, "Restore data successfully");
  EXPECT_EQ(test::filesBelow(data), before);
}

TEST_P(Backup, RestoringChangesNothingElse) {
  backUp();
  auto expected = test::filesBelow(home.device().root() / "var");
  home->perform("restoreData");
  home->tap("2024-03-07 14:05:09");
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), expected);
}
