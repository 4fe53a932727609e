// The script language: what it refuses, how it says so, and that nothing changes then.
#include <gtest/gtest.h>

#include <filesystem>

#include "simulator/device/device.hpp"
#include "simulator/device/files.hpp"
#include "tests/support/archive.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

struct Played {
  int status = 0;
  std::string output, errors;
};

class Script : public testing::Test {
 protected:
  sim::TemporaryFolder folder;
  std::filesystem::path device = folder.path() / "device";

  Played play(const std::string& script) {
    const auto file = folder.path() / "script.txt";
    const auto errors = folder.path() / "errors.txt";
    sim::writeFile(file, script);
    const auto lines = linesOf(std::string("{ ") + test::driver + " " + file.string() + " 2>" + errors.string() +
                               "; echo status $?; }");
    Played played;
    for (const auto& line : lines) {
      if (line.rfind("status ", 0) == 0) {
        played.status = std::stoi(line.substr(7));
      } else {
        played.output += line + "\n";
      }
    }
    played.errors = *sim::readFile(errors);
    return played;
  }
  std::string boot() { return "boot old --device " + device.string() + "\n"; }

  // Every file of the device with its content, to see that nothing changed.
  std::map<std::string, std::string> files() {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(device / "var"))
      all[entry.path().string()] = entry.is_regular_file() ? *sim::readFile(entry.path()) : "";
    return all;
  }
};

struct BadLine {
  std::string line, reason;
};

class BadScript : public Script, public testing::WithParamInterface<BadLine> {};

}  // namespace

TEST_P(BadScript, IsToldInOneLineAndChangesNothing) {
  play(boot());
  const auto before = files();
  const auto played = play(boot() + GetParam().line + "\nsettings enabled=false\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_EQ(std::count(played.errors.begin(), played.errors.end(), '\n'), 1) << played.errors;
  EXPECT_TRUE(played.errors.starts_with("line 2: ")) << played.errors;
  EXPECT_NE(played.errors.find(GetParam().reason), std::string::npos) << played.errors;
  EXPECT_EQ(files(), before);
}

INSTANTIATE_TEST_SUITE_P(
    , BadScript,
    testing::Values(BadLine{"frobnicate", "frobnicate"}, BadLine{"touch com.example.nobody", "com.example.nobody"},
                    BadLine{"touch", "touch"}, BadLine{"touch com.example.notes again", "touch"},
                    BadLine{"swipe left com.example.notes", "left"},
                    BadLine{"swipe up com.example.notes 1", "without a DY"},
                    BadLine{"swipe up com.example.notes 1 x", "x"}, BadLine{"choose Sprigdial", "quick-action list"},
                    BadLine{"tap Cancel", "no sheet or alert"}, BadLine{"tap Cancel --later", "--later"},
                    BadLine{"type hello", "no sheet or alert"}, BadLine{"install /nowhere/at-all.ipa", "at-all.ipa"},
                    BadLine{"edit maybe", "maybe"}, BadLine{"advance soon", "soon"}, BadLine{"advance -1", "forwards"},
                    BadLine{"cat /var/nothing", "/var/nothing"}, BadLine{"plist /var/mobile", "/var/mobile"},
                    BadLine{"plist com.example.nothing", "no such file"},
                    BadLine{"preferences com.example.nothing", "does not hold com.example.nothing"},
                    BadLine{"preferences", "usage: preferences DOMAIN"}, BadLine{"ls /../../etc", ".."},
                    BadLine{"settings direction", "direction"},
                    BadLine{"settings enabled=false direction --through-daemon", "direction"},
                    BadLine{"download pause com.example.x", "pause"}, BadLine{"screen sideways", "sideways"},
                    BadLine{"boot ancient", "ancient"}, BadLine{"boot old --clock 1e30", "cannot stand at 1e30"},
                    BadLine{"boot old --clock 1e19", "cannot stand at 1e19"},
                    BadLine{"boot new --clock -1", "cannot stand at -1"}, BadLine{"boot new --clock nan", "nan"},
                    BadLine{"clear", "no sheet or alert"}, BadLine{"paste x", "no sheet or alert"},
                    BadLine{"touch \"com.example.notes", "quot"}));

TEST_F(Script, AnExpectationThatFailsEndsWithOne) {
  const auto played = play(boot() + "expect \"No such thing\"\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.errors.find("No such thing"), std::string::npos);
}

TEST_F(Script, AnExpectationOfAbsenceFailsToo) {
  const auto played = play(boot() + "expect-not Notes\n");
  EXPECT_EQ(played.status, 1);
}

TEST_F(Script, CommentsAndQuotesAreUnderstood) {
  const auto played =
      play("# a comment\n" + boot() + "\n  # another\nnotify com.example.notes 'Hello, you'\nexpect \"Hello, you\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
}

TEST_F(Script, MissingScriptIsTold) {
  const auto lines = linesOf(std::string("{ ") + test::driver + " /nowhere.txt 2>&1; echo status $?; }");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1], "status 2");
}

TEST_F(Script, HelpListsEveryVerb) {
  const auto played = play("help\n");
  EXPECT_EQ(played.status, 0);
  for (const auto* verb :
       {"boot",     "respring", "install", "touch",      "swipe",  "force-touch", "choose",     "tap",
        "type",     "launch",   "edit",    "lock",       "unlock", "screen",      "power-down", "notify",
        "download", "settings", "post",    "advance",    "ls",     "cat",         "plist",      "pasteboard",
        "urls",     "calls",    "expect",  "expect-not", "help"})
    EXPECT_TRUE(played.output.find(std::string("\n") + verb + " ") != std::string::npos ||
                played.output.find(std::string("\n") + verb + "\n    ") != std::string::npos)
        << verb;
}

TEST_F(Script, InstallSaysWhatItInstalled) {
  const auto archive = folder.path() / "neu.ipa";
  const std::string info =
      R"(<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>com.example.new</string>)";
  test::writeArchive(archive, {{"Payload/Neü.app/Info.plist", info + "</dict></plist>"}});
  EXPECT_NE(play(boot() + "install " + archive.string() + "\nexpect Neü\n")
                .output.find("installed com.example.new \"Neü\", no version\n"),
            std::string::npos);
  test::writeArchive(archive, {{"Payload/Neü.app/Info.plist",
                                info + "<key>CFBundleVersion</key><string>2 🆕</string></dict></plist>"}});
  EXPECT_NE(play(boot() + "install " + archive.string() + "\n")
                .output.find("installed com.example.new \"Neü\", version 2 🆕\n"),
            std::string::npos);
}

TEST_F(Script, TheNumberPadHasDigitsOnly) {
  const std::string dialog = boot() + "swipe up com.example.chess\ntap \"Set Badges\"\n";
  const auto refused = play(dialog + "type 1x\n");
  EXPECT_EQ(refused.status, 2);
  EXPECT_NE(refused.errors.find("The number pad has digits only"), std::string::npos) << refused.errors;
  const auto played = play(dialog + "type 12\npaste \"your move\"\ntap Apply\nexpect \"Chess (your move)\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
}

TEST_F(Script, TheClearButtonIsThereToEmptyAField) {
  const std::string dialog = boot() + "swipe up com.example.chess\ntap \"Rename App\"\nadvance 1\n";
  const auto played = play(dialog + "clear\nexpect-not \"[ Chess\"\nclear\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_EQ(played.errors, "line 7: The text field shows no clear button\n");
  const auto pad = play(boot() + "swipe up com.example.chess\ntap \"Set Badges\"\ntype 1\nclear\n");
  EXPECT_EQ(pad.errors, "line 5: The text field shows no clear button\n");
}

TEST_F(Script, PlistShowsAFileAndPreferencesADomainAsTheDaemonHoldsIt) {
  const std::string file = "plist /var/mobile/Library/Preferences/com.morvanel.sprigdial.plist\n";
  const auto played = play(boot() +
                           "settings direction=0 slideValue=0.5 enabled=true\n"
                           "swipe up com.example.notes\ntap \"Rename App\"\nadvance 1\ntype \"42\"\ntap Apply\n"
                           "settings slideValue=0.75 enabled= --through-daemon\n" +
                           file + "preferences com.morvanel.sprigdial\nflush\n" + file);
  EXPECT_EQ(played.status, 0) << played.errors;
  const std::string before =
      "{\n  \"com.example.notes\": \"42\"\n  \"direction\": 0\n  \"enabled\": true\n  \"slideValue\": 0.5\n}\n";
  const std::string after = "{\n  \"com.example.notes\": \"42\"\n  \"direction\": 0\n  \"slideValue\": 0.75\n}\n";
  const std::string untilFlushed =
      "> " + file + before + "> preferences com.morvanel.sprigdial\n" + after + "> flush\n";
  const auto place = played.output.find(untilFlushed);
  ASSERT_NE(place, std::string::npos) << played.output;
  // The daemon writes its keys as they come.
  const std::string written = played.output.substr(place + untilFlushed.size());
  EXPECT_NE(written.find("\"com.example.notes\": \"42\"\n"), std::string::npos) << written;
  EXPECT_NE(written.find("\"slideValue\": 0.75\n"), std::string::npos) << written;
  EXPECT_EQ(written.find("enabled"), std::string::npos) << written;
}
