// The script language: what it refuses, how it says so, and that nothing changes then.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

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
    sim::writeFile(file, script);
    return run(test::driver + (" " + file.string()));
  }
  Played run(const std::string& command) {
    const auto errors = folder.path() / "errors.txt";
    const auto lines = linesOf("{ " + command + " 2>" + errors.string() + "; echo status $?; }");
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
  // What the verbs print after that line.
  static std::string after(const Played& played, const std::string& line) {
    const std::size_t start = played.output.find("> " + line + "\n");
    if (start == std::string::npos) return "not played";
    const std::size_t from = start + line.size() + 3;
    return played.output.substr(from, played.output.find("\n> ", from - 1) + 1 - from);
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
[[maybe_unused]] void PrintTo(const BadLine& bad, std::ostream* output) { *output << bad.line; }

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
    testing::Values(
        BadLine{"frobnicate", "unknown verb: frobnicate; try help"}, BadLine{"force-tuch x", "try force-touch"},
        BadLine{"touch com.example.nobody", "\"icons\" lists those there are"},
        BadLine{"touch com.example.nots", "nearest: com.example.notes"}, BadLine{"touch Wether", "nearest: Weather"},
        BadLine{"touch", "usage: touch ID"},
        BadLine{"touch Travel Planner", "quote what has blanks: touch \"Travel Planner\""},
        BadLine{"lock now", "usage: lock"}, BadLine{"swipe left com.example.notes", "not up or down: left"},
        BadLine{"swipe up com.example.notes 1", "without a DY"}, BadLine{"swipe up com.example.notes 1 x", "x"},
        BadLine{"choose Sprigdial", "quick-action list"}, BadLine{"tap Cancel", "no sheet or alert"},
        BadLine{"tap Copy URL Schemes", "quote what has blanks: tap \"Copy URL Schemes\""},
        BadLine{"tap Cancel --later", "--later"},
        BadLine{"notify com.example.notes Hello you", "notify com.example.notes \"Hello you\""},
        BadLine{"notify com.example.notes", "usage: notify ID TEXT"}, BadLine{"type hello", "no sheet or alert"},
        BadLine{"install /nowhere/at-all.ipa", "at-all.ipa"}, BadLine{"uninstall Chss", "nearest: Chess"},
        BadLine{"where com.example.nobody", "no application com.example.nobody"},
        BadLine{"put /nowhere/at-all /var/mobile", "no such file or folder: /nowhere/at-all"},
        BadLine{"put /etc/passwd /var/nothing/passwd", "no such folder: /var/nothing"},
        BadLine{"put /etc/passwd /var/mobile/New/", "no such folder: /var/mobile/New/"}, BadLine{"edit maybe", "maybe"},
        BadLine{"advance soon", "soon"}, BadLine{"advance -1", "forwards"}, BadLine{"cat /var/nothing", "/var/nothing"},
        BadLine{"plist /var/mobile", "/var/mobile"}, BadLine{"plist com.example.nothing", "no such file"},
        BadLine{"preferences", "usage: preferences DOMAIN"},
        BadLine{"settings enabled=false direction --through-daemon", "direction"},
        BadLine{"clear", "no sheet or alert"}, BadLine{"paste x", "no sheet or alert"}, BadLine{"ls /../../etc", ".."},
        BadLine{"settings direction", "direction"}, BadLine{"download pause com.example.x", "pause"},
        BadLine{"marker on unknown", "unknown"}, BadLine{"screen sideways", "sideways"},
        BadLine{"help lunch", "unknown verb: lunch"}, BadLine{"boot ancient", "not old or new: ancient"},
        BadLine{"boot old --clock", "--clock needs a value"}, BadLine{"boot old --clock 1e30", "cannot stand at 1e+30"},
        BadLine{"boot old --clock 1e19", "cannot stand at 1e+19"}, BadLine{"boot new --clock -1", "cannot stand at -1"},
        BadLine{"boot old --clock nan", "not a number: nan"},
        BadLine{"boot old --time-zone Europe/Nowhere", "unknown time zone: Europe/Nowhere"},
        BadLine{"boot old --device /etc", "/etc is not a device's folder"},
        BadLine{"touch \"com.example.notes", "quot"}));

TEST_F(Script, AffordancesTellWhatCanBeDoneNow) {
  const auto played = play(boot() + "swipe up Chess\naffordances\n");
  EXPECT_EQ(played.status, 0) << played.errors;
  EXPECT_NE(played.output.find("\nbuttons: "), std::string::npos) << played.output;
  EXPECT_NE(played.output.find("), title Copy BundleID)"), std::string::npos) << played.output;
}

TEST_F(Script, AMissingButtonNamesThoseThereAre) {
  const auto played = play(boot() + "swipe up com.example.notes\ntap \"Copy Bundle\"\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_NE(played.errors.find("no button \"Copy Bundle\"; there are: Open in Filza [App], "), std::string::npos)
      << played.errors;
}

TEST_F(Script, AMissingQuickActionNamesThoseThereAre) {
  const auto played = play(boot() + "force-touch com.example.notes\nchoose Find\n");
  EXPECT_EQ(played.status, 2);
  EXPECT_NE(played.errors.find("; there are: New Note, Search"), std::string::npos) << played.errors;
}

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

TEST_F(Script, TheCommandIsCheckedBeforeAnythingIsDone) {
  for (const std::string& words :
       std::vector<std::string>{"/nowhere.txt", "--bogus", "--console-device", "a b",
                                "--console " + test::sourceFile("scripts/mute.txt"), test::sourceFile("scripts")}) {
    const auto played = run(test::driver + (" " + words));
    EXPECT_EQ(played.status, 2) << words;
    EXPECT_EQ(played.output, "") << words;
    EXPECT_EQ(std::count(played.errors.begin(), played.errors.end(), '\n'), 1) << played.errors;
  }
}

// The command that a person gives: what it refuses it refuses at once, and tells what it is without building.
TEST_F(Script, RunRefusesBeforeItBuilds) {
  const std::string copy = (folder.path() / "run").string();
  std::filesystem::copy(test::sourceFile("run"), copy);
  for (const std::string& words : std::vector<std::string>{
           "/nowhere.txt", "--bogus", "- " + test::sourceFile("scripts/mute.txt"), "--console -"}) {
    const auto played = run(copy + " " + words);
    EXPECT_EQ(played.status, 2) << words;
    EXPECT_EQ(std::count(played.errors.begin(), played.errors.end(), '\n'), 1) << played.errors;
  }
  const auto help = run(copy + " --help");
  EXPECT_EQ(help.status, 0) << help.errors;
  EXPECT_TRUE(help.output.starts_with("usage: ./run")) << help.output;
}

TEST_F(Script, MayComeFromAPipe) {
  const auto played = run(std::string("printf 'boot old\\nexpect Notes\\nexpect Nothing\\n' | ") + test::driver + " -");
  EXPECT_EQ(played.status, 1);
  EXPECT_TRUE(played.errors.starts_with("line 3: ")) << played.errors;
}

TEST_F(Script, QuitEndsIt) {
  const auto played = play(boot() + "quit\nexpect \"No such thing\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
}

TEST_F(Script, HelpListsTheVerbsOfDriverAndProcess) {
  const auto played = play("help\n");
  EXPECT_EQ(played.status, 0) << played.errors;
  for (const std::string usage :
       {"boot old|new [--core-version CORE-VERSION] [--ipad] [--device DEVICE] [--clock CLOCK] [--time-zone TIME-ZONE]",
        "install FILE", "put FILE PATH", "settings ASSIGNMENTS ... [--through-daemon]", "screen [on|off]",
        "help [VERB]", "quit", "swipe up|down ID [SAMPLES ...]", "tap TITLE [--late] [--go-on]", "edit on|off", "lock",
        "advance SECONDS", "download ask|remove|start ID"})
    EXPECT_NE(played.output.find("\n" + usage + "\n    "), std::string::npos) << usage;
  for (const std::string group : {"phone", "device", "gesture", "look", "probe"})
    EXPECT_NE(played.output.find("\n" + group + ":\n"), std::string::npos) << group;
}

TEST_F(Script, HelpTellsWhatAVerbTakes) {
  const auto played = play("help tap\nhelp boot\n");
  EXPECT_TRUE(after(played, "help tap").starts_with("tap TITLE [--late] [--go-on]\n    taps a button"));
  EXPECT_NE(after(played, "help tap").find("\n  --late: "), std::string::npos) << played.output;
  EXPECT_NE(after(played, "help boot").find("\n  --clock: seconds since 1970"), std::string::npos) << played.output;
}

TEST_F(Script, LabelsDoWhereIdentifiersDo) {
  const auto played = play(boot() + "launch \"Travel Planner\"\nexpect \"Open: com.example.travel\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
}

TEST_F(Script, IconsAreListedByLabelAndIdentifier) {
  const auto played = play(boot() + "icons\n");
  const std::string listed = after(played, "icons");
  EXPECT_NE(listed.find("\"Travel Planner\" com.example.travel\n"), std::string::npos) << listed;
  EXPECT_NE(listed.find("Notes com.example.notes\n"), std::string::npos) << listed;
  EXPECT_NE(listed.find("\"Garden Diary\" (bookmark)\n"), std::string::npos) << listed;
}

TEST_F(Script, WhereTellsAnApplicationsFoldersOnTheDeviceAndHere) {
  const auto played = play(boot() + "where Chess\n");
  const std::string told = after(played, "where Chess");
  EXPECT_NE(told.find("bundle: /var/containers/Bundle/Application/"), std::string::npos) << told;
  EXPECT_NE(told.find("data: /var/mobile/Containers/Data/Application/"), std::string::npos) << told;
  const std::string here = "on this PC: " + (device / "var/mobile").string();
  ASSERT_NE(told.find(here), std::string::npos) << told;
  const std::string folderHere = told.substr(told.find(here) + 12);
  EXPECT_TRUE(std::filesystem::is_directory(folderHere.substr(0, folderHere.find('\n')) + "/Documents/Games"));
}

TEST_F(Script, InstallSaysWhatItInstalledAndUninstallTakesItAway) {
  const auto payload = folder.path() / "Payload/Small.app";
  sim::writeFile(payload / "Info.plist",
                 "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.example.small</string>"
                 "<key>CFBundleDisplayName</key><string>A Small One</string></dict></plist>");
  linesOf("cd " + folder.path().string() + " && zip -qr small.ipa Payload");
  const std::string install = "install " + (folder.path() / "small.ipa").string();
  const auto played = play(
      boot() + install +
      "\nexpect \"A Small One\"\nuninstall \"A Small One\"\nexpect-not \"A Small One\"\nwhere com.example.small\n");
  EXPECT_EQ(after(played, install), "installed com.example.small \"A Small One\", no version\n");
  EXPECT_EQ(played.errors, "line 6: no application com.example.small\n");
}

TEST_F(Script, PutBringsFilesAndFoldersOntoTheDevice) {
  sim::writeFile(folder.path() / "things/inner/letter.txt", "hello");
  std::filesystem::create_symlink("inner/letter.txt", folder.path() / "things/link");
  const std::string things = (folder.path() / "things").string();
  const auto played = play(boot() + "put " + things + " /var/mobile/Documents\n" + "put " + things +
                           "/inner/letter.txt /var/mobile/Documents/renamed.txt\n"
                           "cat /var/mobile/Documents/things/link\ncat /var/mobile/Documents/renamed.txt\n");
  EXPECT_EQ(played.status, 0) << played.errors;
  EXPECT_EQ(after(played, "cat /var/mobile/Documents/things/link"), "hello\n");
  EXPECT_EQ(after(played, "cat /var/mobile/Documents/renamed.txt"), "hello\n");
  // A folder is not mixed into one of its name, and what was there stays.
  const auto again = play(boot() + "put " + things + " /var/mobile/Documents\n");
  EXPECT_EQ(again.status, 2);
  EXPECT_NE(again.errors.find("a folder of that name"), std::string::npos) << again.errors;
  const auto around = play(boot() + "put " + folder.path().string() + " /var/mobile/Documents\n");
  EXPECT_NE(around.errors.find("the device is in it"), std::string::npos) << around.errors;
}

TEST_F(Script, RescanFindsWhatWasPutOnTheDevice) {
  sim::writeFile(folder.path() / "AAAA/New.app/Info.plist",
                 "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.example.fresh</string>"
                 "<key>CFBundleDisplayName</key><string>Fresh One</string></dict></plist>");
  const auto played =
      play(boot() + "put " + (folder.path() / "AAAA").string() +
           " /var/containers/Bundle/Application\nexpect-not \"Fresh One\"\nrescan\nexpect \"Fresh One\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
}

TEST_F(Script, LsShowsKindsAndEveryBitOfTheMode) {
  namespace fs = std::filesystem;
  play(boot());
  const fs::path there = device / "var/mobile/Kinds";
  fs::create_directories(there / "folder");
  for (const char* name : {"a", "b", "c"}) sim::writeFile(there / name, "four");
  const auto mode = [&](const char* name, unsigned bits) {
    fs::permissions(there / name, static_cast<fs::perms>(bits));
  };
  mode("a", 04755);
  mode("b", 02644);
  mode("c", 0600);
  mode("folder", 01777);
  fs::create_symlink("a", there / "link");
  linesOf("mkfifo -m 644 " + (there / "pipe").string());
  linesOf("perl -MIO::Socket::UNIX -e 'IO::Socket::UNIX->new(Local => $ARGV[0], Listen => 1)' " +
          (there / "socket").string());
  fs::permissions(there / "socket", static_cast<fs::perms>(0755));
  const auto played = play(boot() + "ls /var/mobile/Kinds\n");
  std::vector<std::string> starts;
  std::istringstream lines(after(played, "ls /var/mobile/Kinds"));
  for (std::string line; std::getline(lines, line);) starts.push_back(line.substr(0, 22) + "|" + line.substr(42));
  EXPECT_EQ(starts, (std::vector<std::string>{"-rwsr-xr-x           4|a", "-rw-r-Sr--           4|b",
                                              "-rw-------           4|c", "drwxrwxrwt            |folder",
                                              "lrwxrwxrwx            |link -> a", "prw-r--r--            |pipe",
                                              "srwxr-xr-x            |socket"}));
}

TEST_F(Script, LsTellsTimesByThePhonesClock) {
  const std::string put = "put /etc/hostname /var/mobile/Documents/";
  const auto played = play("boot old --clock 1709820309 --time-zone UTC\n" + put + "first\nadvance 3600\n" + put +
                           "second\nadvance 86400\nls /var/mobile/Documents\n");
  const std::string listed = after(played, "ls /var/mobile/Documents");
  EXPECT_NE(listed.find("  2024-03-07 14:05  first\n"), std::string::npos) << played.output << played.errors;
  EXPECT_NE(listed.find("  2024-03-07 15:05  second\n"), std::string::npos) << listed;
}

TEST_F(Script, AnswersOfTheProcessCanBeRead) {
  const auto played = play(boot() +
                           "pasteboard\nswipe up com.example.notes\ntap \"Copy BundleID\"\npasteboard\nadvance 1\n"
                           "swipe up com.example.notes\ntap \"Open in Filza [App]\"\nurls\n");
  EXPECT_EQ(after(played, "pasteboard"), "nothing\n");
  EXPECT_NE(played.output.find("text: com.example.notes\ntype: public.utf8-plain-text\n"), std::string::npos)
      << played.output;
  EXPECT_TRUE(after(played, "urls").starts_with("opened true, url filza:/")) << played.output;
}

TEST_F(Script, InstallSaysWhatItInstalled) {
  const auto archive = folder.path() / "neu.ipa";
  const std::string info =
      R"(<plist version="1.0"><dict><key>CFBundleIdentifier</key><string>com.example.new</string>)";
  test::writeArchive(archive, {{"Payload/Neü.app/Info.plist", info + "</dict></plist>"}});
  EXPECT_NE(play(boot() + "install " + archive.string() + "\nexpect Neü\n")
                .output.find("installed com.example.new Neü, no version\n"),
            std::string::npos);
  test::writeArchive(archive, {{"Payload/Neü.app/Info.plist",
                                info + "<key>CFBundleVersion</key><string>2 🆕</string></dict></plist>"}});
  EXPECT_NE(
      play(boot() + "install " + archive.string() + "\n").output.find("installed com.example.new Neü, version 2 🆕\n"),
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

TEST_F(Script, ASecondMenuTooSoonIsExplained) {
  const std::string menu = "boot old\nswipe up com.example.notes\ntap Cancel\n";
  const auto explained = [&](const std::string& then) {
    return play(menu + then + "swipe up com.example.notes").output.find("No menu comes so soon") != std::string::npos;
  };
  EXPECT_TRUE(explained(""));
  EXPECT_FALSE(explained("advance 1\n"));
  EXPECT_FALSE(explained("respring\nsettings enabled=false\n"));
}

TEST_F(Script, InstallsAndRemovesPackages) {
  const std::string package = std::string(test::buildFolder) + "/Sprigdial.deb";
  const auto played = play(boot() + "packages\npackage remove com.morvanel.sprigdial\nswipe up com.example.notes\n" +
                           "expect-not \"Clear Badges\"\npackage install " + package +
                           "\nswipe up com.example.notes\nexpect \"Clear Badges\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
  const std::string version = linesOf("dpkg-deb -f " + package + " Version").front();
  EXPECT_EQ(after(played, "packages"), "base 1\ncom.morvanel.sprigdial " + version + "\n");
  EXPECT_EQ(after(played, "package remove com.morvanel.sprigdial"), "removed com.morvanel.sprigdial " + version + "\n");
  EXPECT_EQ(after(played, "package install " + package), "installed com.morvanel.sprigdial " + version + "\n");
}

TEST_F(Script, TellsAtOnceWhyAnAddOnIsNotMapped) {
  const std::string filter = "/Library/MobileSubstrate/DynamicLibraries/Sprigdial.plist";
  const auto empty = folder.path() / "empty";
  sim::writeFile(empty, "");
  const std::string event = "Event: Sprigdial.dylib is not mapped: its filter cannot be read\n";
  const auto played = play(boot() + "put " + empty.string() + " " + filter + "\nrespring\n" + boot() +
                           "expect \"its filter cannot be read\"\n");
  EXPECT_EQ(played.status, 0) << played.errors;
  EXPECT_EQ(after(played, "respring"), event);
}

TEST_F(Script, RefusesPackagesThatAreNoneInOneLine) {
  const auto text = folder.path() / "text.deb";
  sim::writeFile(text, "no package");
  play(boot());
  const auto before = files();
  for (const std::string& line :
       {std::string("package install /nowhere.deb"), "package install " + text.string(),
        std::string("package remove com.example.nothing"), std::string("package remove base"),
        std::string("package install"), std::string("package replace com.morvanel.sprigdial")}) {
    const auto played = play(boot() + line + "\n");
    EXPECT_EQ(played.status, 2) << line;
    EXPECT_EQ(std::count(played.errors.begin(), played.errors.end(), '\n'), 1) << played.errors;
    EXPECT_EQ(files(), before) << line;
  }
}
