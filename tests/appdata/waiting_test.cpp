// What goes on while the home screen waits for the archiver: everything, as on a phone.
#include <functional>
#include <thread>

#include "tests/support/phone.hpp"

namespace {

namespace fs = std::filesystem;
const std::string app = "com.example.test";
const std::string other = "com.example.notes";
const std::string store = "/var/mobile/Documents/Sprigdial/" + app;
const std::string sound = "SBNCSoundController playSoundForNotificationRequest:";

enum class Operation { backup, restore };

class Waiting : public testing::TestWithParam<std::tuple<sim::Generation, Operation>> {
 protected:
  void SetUp() override {
    phone.options().timeZone = "UTC";
    phone.options().clock = 1709820309;  // 2024-03-07 14:05:09
    phone.options().interposed = {sound};
    phone.install({});
    sim::writeFile(letter(), "first");
    if (!restores()) return;
    phone.openMenu(app);
    phone.tap("Backup Data").tap("OK").advance(1);
    sim::writeFile(letter(), "second");
  }
  bool restores() const { return std::get<1>(GetParam()) == Operation::restore; }
  fs::path letter() { return phone.container(app) / "Documents/letter"; }
  std::string message() const { return restores() ? "Restore data successfully" : "BackUp data successfully"; }
  std::size_t archives(const std::string& id = app) {
    const fs::path folder = phone.path("/var/mobile/Documents/Sprigdial/" + id);
    return fs::exists(folder) ? std::distance(fs::directory_iterator(folder), fs::directory_iterator()) : 0;
  }

  void replaceArchiver(const std::string& script) {
    fs::remove_all(phone.path("/usr/bin/tar"));
    sim::writeFile(phone.path("/usr/bin/tar"), "#!/bin/sh\n" + script);
    fs::permissions(phone.path("/usr/bin/tar"), fs::perms::all);
  }
  // The archiver begins its work when `letGo` is called.
  void hold() { replaceArchiver("while [ ! -e /var/mobile/go ]; do sleep 0.01; done\nexec /bin/tar \"$@\"\n"); }
  void letGo() { sim::writeFile(phone.path("/var/mobile/go"), ""); }

  void start() {
    phone.openMenu(app);
    if (restores()) phone.tap("Restore Data").advance(1);
    phone.tapAndGoOn(restores() ? phone.buttons().at(0) : "Backup Data");
    ASSERT_EQ(waitedFor(), 1U);
  }
  void begin() {
    hold();
    start();
  }
  std::size_t waitedFor() { return phone.ask("waiting").size(); }
  void finish() {
    letGo();
    phone.finishWaiting();
    EXPECT_EQ(waitedFor(), 0U);
  }
  // The archiver's end is told, its work is done, and the home screen goes on as ever.
  void expectDone() {
    EXPECT_EQ(phone.alert().message, message());
    phone.tap("OK").advance(1);
    EXPECT_TRUE(phone.screen().windows.empty());
    EXPECT_EQ(archives(), 1U);
    EXPECT_EQ(sim::readFile(letter()), "first");
    expectAWorkingMenu();
  }
  void expectAWorkingMenu(const std::string& id = app) {
    phone.openMenu(id);
    EXPECT_TRUE(phone.hasButton("Rename App"));
    phone.tap("Cancel").advance(1);
  }
  // The overlay goes, and what is below it can be touched.
  void clearOverlay() {
    phone.lock().unlock().advance(1);
    EXPECT_TRUE(phone.screen().windows.empty());
  }
  std::vector<std::string> banners() {
    std::vector<std::string> texts;
    for (const auto& each : phone.screen().banners) texts.push_back(each.text);
    return texts;
  }

  test::Phone phone{std::get<0>(GetParam())};
};

std::string nameOf(const testing::TestParamInfo<std::tuple<sim::Generation, Operation>>& info) {
  return std::string(std::get<0>(info.param) == sim::Generation::old ? "Old" : "New") +
         (std::get<1>(info.param) == Operation::backup ? "Backup" : "Restore");
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(
    , Waiting, testing::Combine(test::bothGenerations, testing::Values(Operation::backup, Operation::restore)), nameOf);

TEST_P(Waiting, TheOverlayStandsWhileTheArchiverWorks) {
  begin();
  ASSERT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(3600);
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(waitedFor(), 1U);
  finish();
  expectDone();
}

TEST_P(Waiting, LockingTakesTheOverlayAwayAndTheEndIsToldAllTheSame) {
  begin();
  phone.lock();
  EXPECT_TRUE(phone.screen().locked);
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.unlock();
  EXPECT_FALSE(phone.screen().locked);
  EXPECT_EQ(waitedFor(), 1U);
  finish();
  expectDone();
}

TEST_P(Waiting, TheEndMayComeWhileTheDeviceIsLocked) {
  begin();
  phone.lock();
  finish();
  phone.unlock().advance(1).tap("OK").advance(1);
  EXPECT_EQ(sim::readFile(letter()), "first");
  expectAWorkingMenu();
}

TEST_P(Waiting, TheScreenMayGoOffAndOn) {
  begin();
  phone.screenOff();
  EXPECT_FALSE(phone.screen().on);
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.screenOn();
  EXPECT_TRUE(phone.screen().on);
  finish();
  expectDone();
}

TEST_P(Waiting, ThePowerDownSliderComesUp) {
  begin();
  phone.powerDown();
  EXPECT_TRUE(phone.screen().poweringDown);
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.home();
  finish();
  expectDone();
}

TEST_P(Waiting, NotificationsArriveOrAreKeptAway) {
  phone.openMenu(app);
  phone.tap("Mute Notification").advance(1).tap("Forever").advance(1);
  begin();
  phone.notify(app, "kept away").notify(other, "let through");
  EXPECT_EQ(banners(), std::vector<std::string>{"let through"});
  finish();
  expectDone();
}

TEST_P(Waiting, AMuteEndsInItsTime) {
  phone.openMenu(app);
  phone.tap("Mute Notification").advance(1).tap("For 1 Hour").advance(1);
  begin();
  phone.notify(app, "too early").advance(3601);
  phone.notify(app, "in time");
  EXPECT_EQ(banners(), std::vector<std::string>{"in time"});
  finish();
  expectDone();
}

TEST_P(Waiting, SettingsChangeAtOnce) {
  begin();
  clearOverlay();
  phone.settings({"enabled=false"});
  phone.swipeUp(other);
  EXPECT_TRUE(phone.screen().windows.empty());
  phone.settings({"enabled=true"});
  finish();
  expectDone();
}

TEST_P(Waiting, AnApplicationCanBeRenamed) {
  begin();
  clearOverlay();
  phone.rename(other, "Renamed");
  phone.advance(1);
  EXPECT_EQ(phone.icon(other).label, "Renamed");
  EXPECT_EQ(phone.storedName(other), "Renamed");
  EXPECT_EQ(waitedFor(), 1U);
  phone.openMenu(app);  // the results are told to the application that the wait is for
  phone.tap("Cancel").advance(1);
  finish();
  expectDone();
}

TEST_P(Waiting, ASecondBackupWaitsWithinTheFirst) {
  begin();
  clearOverlay();
  phone.openMenu(other);
  phone.tapAndGoOn("Backup Data");
  EXPECT_EQ(waitedFor(), 2U);
  letGo();
  phone.finishWaiting();
  EXPECT_EQ(waitedFor(), 0U);
  EXPECT_EQ(archives(other), 1U);
  EXPECT_EQ(archives(), 1U);
  EXPECT_EQ(sim::readFile(letter()), "first");
  // One window is in the slot, and one alert in it.
  EXPECT_EQ(phone.screen().windows.size(), 1U);
  EXPECT_EQ(phone.alert().message, message());
  phone.tap("OK").advance(1);
  EXPECT_TRUE(phone.screen().windows.empty());
  expectAWorkingMenu();
  EXPECT_EQ(phone.live("UIAlertController"), 0);
}

TEST_P(Waiting, TheApplicationMayBeRemoved) {
  begin();
  phone.uninstall(app);
  EXPECT_EQ(phone.screen().icon(app), nullptr);
  finish();
  EXPECT_EQ(phone.alert().message, message());
  phone.tap("OK").advance(1);
  EXPECT_TRUE(phone.screen().windows.empty());
  expectAWorkingMenu(other);
}

TEST_P(Waiting, AnArchiverThatIsKilledHasEnded) {
  replaceArchiver("while [ ! -e /var/mobile/go ]; do sleep 0.01; done\nkill -9 $$\n");
  start();
  finish();
  EXPECT_EQ(phone.alert().message, message());
  phone.tap("OK").advance(1);
  expectAWorkingMenu();
}

TEST_P(Waiting, ArchiversThatNeverEndGoWithTheHomeScreen) {
  replaceArchiver("while sleep 0.01; do echo >> /var/mobile/beats$$; done\n");
  const auto beats = [&] {
    std::vector<std::uintmax_t> sizes;
    for (const auto& entry : fs::directory_iterator(phone.path("/var/mobile")))
      if (entry.path().filename().string().starts_with("beats")) sizes.push_back(entry.file_size());
    return sizes;
  };
  start();
  clearOverlay();
  phone.openMenu(other);
  phone.tapAndGoOn("Backup Data");
  while (beats().size() < 2) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  phone.shutDown();
  const auto atTheEnd = beats();
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_EQ(beats(), atTheEnd);
}

TEST_P(Waiting, ARespringEndsTheWait) {
  begin();
  phone.respring();
  EXPECT_EQ(waitedFor(), 0U);
  EXPECT_TRUE(phone.screen().windows.empty());
  if (!restores()) EXPECT_EQ(archives(), 0U);
  expectAWorkingMenu(other);
}

TEST_P(Waiting, AnExceptionInBetweenIsCaughtByWhoeverCatches) {
  begin();
  phone.interpose(sound, {{"do", "raise"}});
  EXPECT_TRUE(phone.raises("notify", {{"id", other}, {"text", "hello"}, {"places", {"sound"}}}));
  EXPECT_EQ(waitedFor(), 1U);
  finish();
  expectDone();
}

TEST_P(Waiting, AnExceptionThatNobodyCatchesEndsTheHomeScreen) {
  begin();
  phone.interpose(sound, {{"do", "raise"}});
  EXPECT_THROW(phone.ask("notify", {{"id", other}, {"text", "hello"}, {"places", {"sound"}}}), sim::HomeScreenDied);
}
