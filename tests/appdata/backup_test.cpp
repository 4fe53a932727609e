// Backing up, restoring and deleting backups, with the real archiver.
#include <functional>
#include <thread>

#include "tests/support/command.hpp"
#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
const std::string app = "com.example.test";
const std::string store = "/var/mobile/Documents/Sprigdial/" + app;

class Backup : public test::Generations {
 protected:
  void SetUp() override {
    phone.options().timeZone = "UTC";
    phone.options().clock = 1709820309;  // 2024-03-07 14:05:09
    phone.install({});
    data = phone.container(app);
    sim::writeFile(data / "Documents/letter", "first");
    phone.touch(app);
  }
  std::vector<std::string> archives() {
    std::vector<std::string> names;
    if (fs::exists(phone.path(store)))
      for (const auto& entry : fs::directory_iterator(phone.path(store))) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  void makeArchives(const std::vector<std::string>& names) {
    for (const auto& name : names) sim::writeFile(phone.path(store) / name, "");
  }
  void backUp() {
    phone.perform("backUpData");
    EXPECT_EQ(phone.alert().message, "BackUp data successfully");
    phone.tap("OK");
  }
  // "" for none.
  void replaceArchiver(const std::string& script) {
    fs::remove_all(phone.path("/usr/bin/tar"));
    if (script.empty()) return;
    sim::writeFile(phone.path("/usr/bin/tar"), "#!/bin/sh\n" + script);
    fs::permissions(phone.path("/usr/bin/tar"), fs::perms::all);
  }
  // The archiver begins when `finishArchiver` is called.
  void holdArchiver() { replaceArchiver("while [ ! -e /var/mobile/go ]; do sleep 0.01; done\nexec /bin/tar \"$@\"\n"); }
  void finishArchiver() { sim::writeFile(phone.path("/var/mobile/go"), ""); }
  // The folder of the device without the application's own container and backups.
  std::map<std::string, std::string> otherFiles() {
    auto files = test::filesBelow(phone.device().root() / "var");
    const std::string backups = phone.path("/var/mobile/Documents/Sprigdial").string();
    std::erase_if(files, [&](const auto& file) {
      return file.first.starts_with(data.string()) || file.first.starts_with(backups);
    });
    return files;
  }
  void expectOverlay() {
    const auto windows = phone.screen().windows;
    ASSERT_EQ(windows.size(), 1U);
    EXPECT_FALSE(windows[0].alert);
    EXPECT_EQ(windows[0].views.at(0).subviews.at(0).text, "Please wait...");
  }
  fs::path data;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Backup, test::bothGenerations, test::generationName);

TEST_P(Backup, MakesTheFolderAndOneArchive) {
  phone.openMenu();
  phone.tap("Backup Data");
  EXPECT_EQ(phone.alert().style, "alert");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "BackUp data successfully");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
  EXPECT_EQ(archives(), std::vector<std::string>{"2024-03-07.14_05_09"});
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  phone.tap("OK");
  phone.advance(1);
  phone.openMenu();
  EXPECT_TRUE(phone.hasButton("Restore Data"));
  EXPECT_TRUE(phone.hasButton("Delete Backup Data"));
}

TEST_P(Backup, ArchivesTheContainerUnderItsAbsolutePath) {
  backUp();
  const auto names = linesOf("tar tzf " + (phone.path(store) / archives()[0]).string());
  const auto onPhone = phone.device().application(app)->data.string().substr(1);
  EXPECT_EQ(names[0], onPhone + "/");
  EXPECT_NE(std::find(names.begin(), names.end(), onPhone + "/Documents/letter"), names.end());
}

TEST_P(Backup, TwoInOneSecondLeaveTheSecond) {
  backUp();
  sim::writeFile(data / "Documents/letter", "second");
  backUp();
  ASSERT_EQ(archives().size(), 1U);
  const auto lines = linesOf("tar xzOf " + (phone.path(store) / archives()[0]).string() + " --wildcards '*letter'");
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
    test::Phone other(GetParam());
    other.options().timeZone = zone;
    other.options().clock = clock;
    other.install({});
    other.touch(app);
    other.perform("backUpData");
    EXPECT_TRUE(fs::exists(other.path(store) / name)) << name;
  }
}

TEST_P(Backup, WithoutContainerTellsThatThereIsNothing) {
  fs::remove_all(data);
  phone.perform("backUpData");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "User data not found");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
  EXPECT_TRUE(fs::is_directory(phone.path(store)));
  EXPECT_TRUE(archives().empty());
}

TEST_P(Backup, WithoutAFolderToWriteToTellsTheSame) {
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial"), "in the way");
  phone.perform("backUpData");
  EXPECT_EQ(phone.alert().message, "User data not found");
}

TEST_P(Backup, AFailingArchiverIsNotNoticed) {
  replaceArchiver("exit 2\n");
  backUp();
  EXPECT_TRUE(archives().empty());
}

TEST_P(Backup, AnArchiverThatCannotBeLaunchedLeavesTheOverlayUp) {
  makeArchives({"2020-01-01.00_00_00"});
  const std::vector<std::function<void()>> obstacles = {
      [&] { replaceArchiver(""); },
      [&] { fs::create_directories(phone.path("/usr/bin/tar")); },
      [&] {
        replaceArchiver("exit 0\n");
        fs::permissions(phone.path("/usr/bin/tar"), fs::perms::owner_read);
      },
  };
  for (const auto& obstruct : obstacles) {
    obstruct();
    sim::writeFile(data / "Documents/letter", "first");
    phone.perform("backUpData");
    expectOverlay();
    phone.lock();
    EXPECT_TRUE(phone.screen().windows.empty());
    phone.unlock();
    EXPECT_EQ(archives().size(), 1U);

    phone.perform("restoreData");
    phone.tap("2020-01-01 00:00:00");
    expectOverlay();
    phone.lock();
    phone.unlock();
  }
}

TEST_P(Backup, ASlowArchiverIsWaitedForUnderTheOverlay) {
  holdArchiver();
  phone.openMenu();
  phone.tapAndGoOn("Backup Data");
  expectOverlay();
  expectOverlay();
  EXPECT_TRUE(archives().empty());
  finishArchiver();
  phone.finishWaiting();
  EXPECT_EQ(phone.alert().message, "BackUp data successfully");
  EXPECT_EQ(archives().size(), 1U);
}

TEST_P(Backup, ASlowRestoreIsWaitedForUnderTheOverlay) {
  backUp();
  holdArchiver();
  phone.perform("restoreData");
  phone.tapAndGoOn("2024-03-07 14:05:09");
  expectOverlay();
  EXPECT_FALSE(fs::exists(data));
  finishArchiver();
  phone.finishWaiting();
  EXPECT_EQ(phone.alert().message, "Restore data successfully");
  EXPECT_EQ(sim::readFile(data / "Documents/letter"), "first");
}

TEST_P(Backup, AHomeScreenThatEndsTakesItsArchiverWithIt) {
  replaceArchiver("while sleep 0.01; do echo >> /var/mobile/beats; done\n");
  const auto beats = [&] { return fs::file_size(phone.path("/var/mobile/beats")); };
  {
    sim::Phone other(phone.options());
    other.swipe(app, {{0, -20}}).tapAndGoOn("Backup Data");
    while (!fs::exists(phone.path("/var/mobile/beats"))) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  const auto atTheEnd = beats();
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_EQ(beats(), atTheEnd);
}

TEST_P(Backup, AnArchiverThatFailsToRestoreIsNotNoticed) {
  makeArchives({"2024-01-02.08_00_00"});
  phone.perform("restoreData");
  phone.tap("2024-01-02 08:00:00");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, "Restore data successfully");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
  EXPECT_FALSE(fs::exists(data));
}

TEST_P(Backup, TheArchiverGetsExactlyTheseArguments) {
  const std::string container = phone.device().application(app)->data.string();
  replaceArchiver("printf '%s\\n' \"$PWD\" \"$@\" >> /var/mobile/arguments\n");
  backUp();
  makeArchives({"2020-01-01.00_00_00"});
  phone.perform("restoreData");
  phone.tap("2020-01-01 00:00:00");
  EXPECT_EQ(sim::readFile(phone.path("/var/mobile/arguments")),
            store + "\ncfz\n2024-03-07.14_05_09\n" + container + "\n" + store + "\nxfz\n2020-01-01.00_00_00\n-C\n/\n");
}

TEST_P(Backup, TouchesNothingElse) {
  auto container = test::filesBelow(data);
  const auto others = otherFiles();
  backUp();
  EXPECT_EQ(test::filesBelow(data), container);
  makeArchives({"2020-01-01.00_00_00"});
  phone.perform("deleteBackUp");
  phone.tap("2020-01-01 00:00:00");
  EXPECT_EQ(test::filesBelow(data), container);
  EXPECT_EQ(otherFiles(), others);
  EXPECT_EQ(archives(), std::vector<std::string>{"2024-03-07.14_05_09"});
}

TEST_P(Backup, ArchivesAreOfferedLatestFirst) {
  makeArchives({"2024-01-02.08_00_00", "2024-03-07.14_05_09", "2025-12-30.12_00_00"});
  phone.perform("restoreData");
  EXPECT_EQ(phone.alert().style, "action sheet");
  EXPECT_EQ(phone.alert().title, "Test App");
  EXPECT_EQ(phone.alert().message, app);
  EXPECT_EQ(phone.buttons(),
            (std::vector<std::string>{"2025-12-30 12:00:00", "2024-03-07 14:05:09", "2024-01-02 08:00:00", "Cancel"}));
  phone.tap("Cancel");
  phone.perform("deleteBackUp");
  EXPECT_EQ(phone.buttons().size(), 4U);
}

TEST_P(Backup, WithoutABackupBothSaySo) {
  for (const auto* operation : {"restoreData", "deleteBackUp"}) {
    phone.perform(operation);
    EXPECT_EQ(phone.alert().title, "Test App");
    EXPECT_EQ(phone.alert().message, "Please Use BackUp first!");
    EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
    phone.tap("OK");
  }
}

TEST_P(Backup, AnEmptyFolderIsAnEmptySheetForRestoreOnly) {
  fs::create_directories(phone.path(store));
  phone.perform("deleteBackUp");
  EXPECT_EQ(phone.alert().message, "Please Use BackUp first!");
  phone.tap("OK");
  phone.perform("restoreData");
  EXPECT_EQ(phone.buttons(), std::vector<std::string>{"Cancel"});
}

TEST_P(Backup, DeletingRemovesOneArchive) {
  makeArchives({"2024-01-02.08_00_00", "2024-03-07.14_05_09"});
  phone.perform("deleteBackUp");
  phone.tap("2024-01-02 08:00:00");
  EXPECT_EQ(archives(), std::vector<std::string>{"2024-03-07.14_05_09"});
  EXPECT_EQ(phone.alert().message, "Delete data successfully");
  EXPECT_EQ(phone.alert().title, "Test App");
  phone.tap("OK");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Backup, AFailedDeletionIsSilent) {
  makeArchives({"stray file", "with:colon", "2024-01-02.08_00_00"});
  for (const auto* title : {"stray file", "with:colon"}) {
    phone.perform("deleteBackUp");
    phone.tap(title);
    EXPECT_FALSE(phone.showsAlert());
    EXPECT_EQ(phone.screen().windows.size(), 1U) << "the sheet's own window, empty";
    EXPECT_EQ(archives().size(), 3U);
  }
}

// One blank turns into the folder itself, two into the folder of all backups.
TEST_P(Backup, DeletingANameOfBlanksTakesNoFolderAway) {
  const std::vector<std::string> blanks = {" ", "  ", ". ", " ."};
  makeArchives(blanks);
  sim::writeFile(phone.path("/var/mobile/Documents/Sprigdial/com.example.notes/2020-01-01.00_00_00"), "another's");
  const auto before = test::filesBelow(phone.device().root() / "var");
  for (const auto& name : blanks) {
    phone.perform("deleteBackUp");
    std::string title = name;
    std::replace(title.begin(), title.end(), '.', ' ');
    phone.tap(title);
    EXPECT_FALSE(phone.showsAlert()) << "\"" << name << "\"";
  }
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
}

TEST_P(Backup, NamesThatBeginLikeOptionsAreOnlyNames) {
  makeArchives({"-rf", "--help", "--to-command=touch", "-C"});
  const auto others = otherFiles();
  for (const auto* name : {"-rf", "--help", "--to-command=touch", "-C"}) {
    phone.perform("restoreData");
    phone.tap(name);
    EXPECT_EQ(phone.alert().message, "Restore data successfully");
    phone.tap("OK");
    phone.perform("deleteBackUp");
    phone.tap(name);
    EXPECT_EQ(phone.alert().message, "Delete data successfully") << name;
    phone.tap("OK");
  }
  EXPECT_TRUE(archives().empty());
  EXPECT_EQ(otherFiles(), others);
}

TEST_P(Backup, OddBundleIdentifiersStayWithinTheirFolders) {
  for (const std::string odd : {"-rf", "com.example/inner", "..com.example", "com example"}) {
    test::Phone other(GetParam());
    other.install({.id = odd, .name = "Odd"});
    sim::writeFile(other.path("/var/mobile/Documents/mine"), "mine");
    other.touch(odd);
    other.perform("backUpData");
    EXPECT_EQ(other.alert().message, "BackUp data successfully") << odd;
    other.perform("deleteBackUp");
    EXPECT_EQ(other.alert().message, odd);
    other.tap(other.buttons().at(0));
    EXPECT_EQ(other.alert().message, "Delete data successfully") << odd;
    EXPECT_TRUE(fs::is_empty(other.path("/var/mobile/Documents/Sprigdial/" + odd)));
    EXPECT_EQ(sim::readFile(other.path("/var/mobile/Documents/mine")), "mine");
  }
}

TEST_P(Backup, AStrayFolderIsAnArchiveLikeAnyOther) {
  sim::writeFile(phone.path(store) / "folder/inside", "x");
  phone.perform("deleteBackUp");
  phone.tap("folder");
  EXPECT_EQ(phone.alert().message, "Delete data successfully");
  EXPECT_TRUE(archives().empty());
}

TEST_P(Backup, AnArchiveThatCannotGoIsSilent) {
  makeArchives({"2024-01-02.08_00_00"});
  phone.perform("deleteBackUp");
  fs::permissions(phone.path(store), fs::perms::owner_read | fs::perms::owner_exec);
  phone.tap("2024-01-02 08:00:00");
  fs::permissions(phone.path(store), fs::perms::owner_all);
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_EQ(archives().size(), 1U);
}

TEST_P(Backup, AFileInTheBackupFoldersPlaceIsNoFolder) {
  sim::writeFile(phone.path(store), "in the way");
  for (const auto* operation : {"restoreData", "deleteBackUp"}) {
    phone.perform(operation);
    EXPECT_EQ(phone.alert().message, "Please Use BackUp first!");
  }
  EXPECT_EQ(sim::readFile(phone.path(store)), "in the way");
}

TEST_P(Backup, OneTapIsEnough) {
  backUp();
  phone.perform("restoreData");
  EXPECT_EQ(phone.alert().buttons[0].style, "default");
  EXPECT_EQ(phone.alert().buttons[1].style, "cancel");
  phone.tap("Cancel");
  EXPECT_TRUE(phone.screen().windows.empty());
  EXPECT_EQ(sim::readFile(data / "Documents/letter"), "first");
}

TEST_P(Backup, ARestoreUnpacksWhereTheDataWas) {
  backUp();
  const auto moved = data.parent_path() / "B0B0B0B0-0000-4000-8000-000000000001";
  fs::rename(data, moved);
  phone.rescan();
  phone.perform("restoreData");
  phone.tap("2024-03-07 14:05:09");
  EXPECT_FALSE(fs::exists(moved));
  EXPECT_EQ(sim::readFile(data / "Documents/letter"), "first");
}

TEST_P(Backup, WorksOnWhatWasCurrentWhenTheSheetWasMade) {
  backUp();
  phone.perform("restoreData");
  sim::writeFile(data / "Documents/letter", "changed");
  const auto notes = test::filesBelow(phone.container("com.example.notes"));
  phone.touchInSpite("com.example.notes");
  phone.tap("2024-03-07 14:05:09");
  EXPECT_EQ(phone.alert().title, "Notes");  // the result tells of what is current now
  EXPECT_EQ(sim::readFile(data / "Documents/letter"), "first");
  EXPECT_EQ(test::filesBelow(phone.container("com.example.notes")), notes);
}

TEST_P(Backup, ResultsHaveNoTitleWithoutACurrentApplication) {
  test::Phone fresh(GetParam());
  for (const auto* done : {"backUpDataSucces", "restoreDataSucces", "deleteBackUpSucces"}) {
    fresh.perform(done);
    EXPECT_EQ(fresh.alert().title, std::nullopt);
    EXPECT_FALSE(fresh.alert().message->empty());
  }
}

TEST_P(Backup, AnUnknownApplicationsResultIsCalledNull) {
  fs::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.perform("backUpDataSucces");
  EXPECT_EQ(phone.alert().title, "(null)");
  phone.perform("backUpData");
  EXPECT_EQ(phone.alert().title, "(null)");
  EXPECT_EQ(phone.alert().message, "User data not found");
}

TEST_P(Backup, NamesAreComparedAsText) {
  makeArchives({"2025-12-30.12_00_00", "2025-01-04.09_00_00", "notes", "Notes", "9"});
  phone.perform("restoreData");
  EXPECT_EQ(phone.buttons(),
            (std::vector<std::string>{"notes", "Notes", "9", "2025-12-30 12:00:00", "2025-01-04 09:00:00", "Cancel"}));
}

TEST_P(Backup, ItsNameHasNoBlankNoColonAndNoExtension) {
  backUp();
  const std::string name = archives().at(0);
  EXPECT_EQ(name.find_first_of(" :"), std::string::npos);
  EXPECT_EQ(name.find('.'), name.rfind('.'));
  EXPECT_EQ(name.size(), std::string("2024-03-07.14_05_09").size());
}

TEST_P(Backup, AStrayFileIsRestoredQuietlyAsNothing) {
  makeArchives({"-rf stray"});
  phone.perform("restoreData");
  phone.tap("-rf stray");
  EXPECT_EQ(phone.alert().message, "Restore data successfully");
  EXPECT_FALSE(fs::exists(data));
}

// Whatever the system's version: the other sheets ask for it.
TEST_P(Backup, ATabletShowsTheArchivesInAPopover) {
  test::Phone tablet(GetParam());
  tablet.options().tablet = true;
  if (isOld()) tablet.options().coreVersion = 1240;
  tablet.install({});
  fs::create_directories(tablet.path(store));
  tablet.touch(app);
  tablet.perform("restoreData");
  ASSERT_TRUE(tablet.alert().popover);
  EXPECT_TRUE(tablet.alert().popover->sourceIsRootView);
  EXPECT_EQ(tablet.alert().popover->sourceRect, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(tablet.alert().popover->arrowDirections, 0U);
}

TEST_P(Backup, APhoneShowsNoPopover) {
  backUp();
  phone.perform("restoreData");
  EXPECT_FALSE(phone.alert().popover);
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
  phone.perform("restoreData");
  phone.tap("2024-03-07 14:05:09");
  EXPECT_EQ(phone.alert().message, "Restore data successfully");
  EXPECT_EQ(test::filesBelow(data), before);
}

TEST_P(Backup, IntoAFolderThatMayNotBeEnteredIsNotMade) {
  fs::create_directories(phone.path(store));
  fs::permissions(phone.path(store), fs::perms::owner_read | fs::perms::owner_write);
  phone.perform("backUpData");
  expectOverlay();
  EXPECT_FALSE(phone.showsAlert());
  fs::permissions(phone.path(store), fs::perms::owner_all);
}

TEST_P(Backup, OfAFolderThatHasGoneIsNotRestoredFrom) {
  makeArchives({"2020-01-01.00_00_00"});
  phone.perform("restoreData");
  fs::remove_all(phone.path(store));
  phone.tap("2020-01-01 00:00:00");
  expectOverlay();
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Backup, WithoutAnApplicationThereIsNone) {
  makeArchives({"2020-01-01.00_00_00"});
  phone.touch("Garden Diary");
  for (const auto* operation : {"restoreData", "deleteBackUp"}) {
    phone.perform(operation);
    EXPECT_EQ(phone.alert().message, "Please Use BackUp first!") << operation;
    phone.tap("OK");
  }
}

TEST_P(Backup, RestoringChangesNothingElse) {
  backUp();
  auto expected = test::filesBelow(phone.device().root() / "var");
  phone.perform("restoreData");
  phone.tap("2024-03-07 14:05:09");
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), expected);
}
