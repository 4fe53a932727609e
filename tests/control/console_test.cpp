// The console at a terminal: a line is edited, completed and remembered.
#include <gtest/gtest.h>

#include <map>

#include "simulator/device/device.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/packages.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"
#include "tests/support/terminal.hpp"

namespace {

const std::string up = "\x1b[A";
const std::string left = "\x1b[D";
const std::string controlC = "\x03";
const std::string controlD = "\x04";

class Console : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  std::string device = (folder.path() / "device").string();

  test::Terminal start() {
    return {{test::driver, "--console-device", device, "--console"}, {{"XDG_STATE_HOME", folder.path().string()}}};
  }
};

}  // namespace

TEST_F(Console, TellsWhatItIsAndEndsWithQuit) {
  auto console = start();
  EXPECT_TRUE(console.shows("old generation on " + device));
  ASSERT_TRUE(console.shows("> "));
  console.type("quit\r");
  EXPECT_EQ(console.end(), 0);
}

TEST_F(Console, EndsWithControlD) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type(controlD);
  EXPECT_EQ(console.end(), 0);
}

TEST_F(Console, EndsWithControlC) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("scr" + controlC);
  EXPECT_EQ(console.end(), 130);
}

TEST_F(Console, GoesOnAfterAMistake) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("lunch com.example.notes\r");
  EXPECT_TRUE(console.shows("unknown verb: lunch; try launch"));
  ASSERT_TRUE(console.shows("> "));
  console.type("launch com.example.notes\rscreen\r");
  EXPECT_TRUE(console.shows("Open: com.example.notes"));
}

TEST_F(Console, EditsALine) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("xscreen" + left + left + left + left + left + left + "\x7f\r");
  EXPECT_TRUE(console.shows("Home screen, old generation"));
}

TEST_F(Console, RemembersLinesFromOneTimeToTheNext) {
  {
    auto console = start();
    ASSERT_TRUE(console.shows("> "));
    console.type("launch com.example.notes\r");
    ASSERT_TRUE(console.shows("\n"));
    ASSERT_TRUE(console.shows("> "));
    console.type("quit\r");
    EXPECT_EQ(console.end(), 0);
  }
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type(up + up + "\r");
  EXPECT_TRUE(console.shows("launch com.example.notes"));
  console.type("screen\r");
  EXPECT_TRUE(console.shows("Open: com.example.notes"));
}

TEST_F(Console, WorksWhereNothingCanBeRemembered) {
  test::Terminal console({test::driver, "--console-device", device, "--console"},
                         {{"XDG_STATE_HOME", "/proc/nowhere"}});
  ASSERT_TRUE(console.shows("> "));
  console.type("screen\r");
  EXPECT_TRUE(console.shows("Home screen, old generation"));
  console.type("quit\r");
  EXPECT_EQ(console.end(), 0);
}

TEST_F(Console, CompletesVerbsChoicesAndOptions) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("help force-t\t\r");
  EXPECT_TRUE(console.shows("force-touch ID\r\n"));
  console.type("swip\tu\tcom.example.notes\rscreen\r");
  EXPECT_TRUE(console.shows("com.example.notes Ver.1.2.3"));
  console.type("tap Nothing --la\t\r");
  EXPECT_TRUE(console.shows("no button \"Nothing\""));
  console.type("scr\t\t");
  EXPECT_TRUE(console.shows("screen-off")) << "several are listed";
}

TEST_F(Console, CompletesIconsByIdentifierAndByLabel) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  for (const auto& [begun, id] : std::map<std::string, std::string>{
           {"com.example.no", "notes"}, {"Tra", "travel"}, {"\"Travel Pl", "travel"}, {"Caff", "caffe"}}) {
    console.type("launch " + begun + "\t\rscreen\rhome\r");
    EXPECT_TRUE(console.shows("Open: com.example." + id)) << begun << console.rest();
  }
}

TEST_F(Console, CompletesWhatStandsOnTheScreen) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("settings useForce=true\rforce-touch com.example.notes\rchoose Spr\t\r");
  console.type("tap Copy\tU\t\rpasteboard\r");
  EXPECT_TRUE(console.shows("example-notes://")) << console.rest();
}

TEST_F(Console, CompletesPathsOfTheDevice) {
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("ls /var/mobile/Con\tD\tA\t\r");
  EXPECT_TRUE(console.shows(sim::Device::uuid("data com.example.notes"))) << console.rest();
}

TEST_F(Console, TakesLinesThatComeFromNoTerminal) {
  const auto lines = linesOf(std::string("printf 'icons\\nquit\\nlaunch nothing\\n' | ") + test::driver +
                             " --console-device " + device + " --console 2>&1");
  EXPECT_EQ(lines.size(), 12U);
  EXPECT_EQ(lines.back(), "\"Garden Diary\" (bookmark)");
}

TEST_F(Console, PutsWhatWasBuiltOntoItsDevice) {
  const std::filesystem::path image =
      sim::Device(device).resolve("/Library/MobileSubstrate/DynamicLibraries/Sprigdial.dylib");
  sim::writeFile(image, "of yesterday");
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  EXPECT_EQ(sim::readFile(image), sim::readFile(test::pcLibrary));
  console.type("package install " + std::string(test::devicePackage) + "\r");
  ASSERT_TRUE(console.shows("is not mapped"));
  console.type("boot new\rscreen\r");
  EXPECT_TRUE(console.shows("Home screen, new generation"));
  EXPECT_EQ(sim::readFile(image), sim::readFile(test::deviceLibrary)) << "what was installed since";
}

TEST_F(Console, LeavesTheAddOnAwayWhereItWasRemoved) {
  sim::removePackage(sim::Device(device), sim::addOnPackage);
  auto console = start();
  ASSERT_TRUE(console.shows("> "));
  console.type("packages\r");
  ASSERT_TRUE(console.shows("base 1"));
  EXPECT_EQ(sim::installedPackages(sim::Device(device)).size(), 1U);
}
