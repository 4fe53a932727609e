// The package that `./package` makes for a phone, looked at with Debian's own tools.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "simulator/device/files.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

const std::string package = test::devicePackage;

Lines entries(const std::string& member) {
  // Mode, owner's and group's numbers, size, time, name.
  return linesOf("dpkg-deb --" + member + " " + package + " | TZ=UTC tar -tv --numeric-owner --full-time -f -");
}

/// The names, each with its mode and owner.
std::map<std::string, std::string> modes(const Lines& lines) {
  std::map<std::string, std::string> all;
  for (const auto& line : lines) all[line.substr(line.rfind(' ') + 1)] = line.substr(0, line.find(' ', 11));
  return all;
}

std::string field(const std::string& name) {
  std::string value;
  for (const auto& line : linesOf("dpkg-deb --field " + package + " " + name))
    value += (value.empty() ? "" : "\n") + line;
  return value;
}

std::string sum(const std::string& file) {
  const std::string line = linesOf("sha256sum " + file).front();
  return line.substr(0, line.find(' '));
}

constexpr const char* folder = "drwxr-xr-x 0/0";
constexpr const char* program = "-rwxr-xr-x 0/0";
constexpr const char* file = "-rw-r--r-- 0/0";

}  // namespace

TEST(DevicePackage, HoldsTheseFilesOfRootAndNoOthers) {
  EXPECT_EQ(modes(entries("fsys-tarfile")),
            (std::map<std::string, std::string>{
                {"./", folder},
                {"./Library/", folder},
                {"./Library/MobileSubstrate/", folder},
                {"./Library/MobileSubstrate/DynamicLibraries/", folder},
                {"./Library/MobileSubstrate/DynamicLibraries/Sprigdial.dylib", program},
                {"./Library/MobileSubstrate/DynamicLibraries/Sprigdial.plist", file},
                {"./Library/PreferenceBundles/", folder},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/", folder},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Info.plist", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Pane.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Pane@2x.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Pane@3x.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Root.plist", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial@2x.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial@3x.png", file},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/SprigdialSettings", program},
                {"./Library/PreferenceBundles/SprigdialSettings.bundle/icon@3x.png", file},
                {"./Library/PreferenceLoader/", folder},
                {"./Library/PreferenceLoader/Preferences/", folder},
                {"./Library/PreferenceLoader/Preferences/Sprigdial.plist", file},
                {"./usr/", folder},
                {"./usr/share/", folder},
                {"./usr/share/doc/", folder},
                {"./usr/share/doc/com.morvanel.sprigdial/", folder},
                {"./usr/share/doc/com.morvanel.sprigdial/copyright", file},
                {"./usr/share/doc/com.morvanel.sprigdial/depiction.html", file},
                {"./usr/share/doc/com.morvanel.sprigdial/menu.svg", file},
            }));
}

TEST(DevicePackage, HoldsTheseScriptsAndNoOthers) {
  EXPECT_EQ(
      modes(entries("ctrl-tarfile")),
      (std::map<std::string, std::string>{
          {"./", folder}, {"./control", file}, {"./md5sums", file}, {"./postinst", program}, {"./postrm", program}}));
}

TEST(DevicePackage, TellsWhatAnInstallerShows) {
  EXPECT_EQ(field("Package"), "com.morvanel.sprigdial");
  EXPECT_EQ(field("Name"), "Sprigdial");
  EXPECT_EQ("com.morvanel.sprigdial_" + field("Version") + "_" + field("Architecture") + ".deb",
            fs::path(package).filename());
  EXPECT_EQ(field("Architecture"), "iphoneos-arm");
  EXPECT_EQ(field("Maintainer"), "the Sprigdial developers");
  EXPECT_EQ(field("Author"), "the Sprigdial developers");
  EXPECT_EQ(field("Section"), "Tweaks");
  EXPECT_EQ(field("Depends"),
            "firmware (>= 10.0), firmware (<< 15.0), mobilesubstrate (>= 0.9.5000), preferenceloader, tar");
  EXPECT_EQ(field("Icon"), "file:///Library/PreferenceBundles/SprigdialSettings.bundle/Pane@3x.png");
  EXPECT_EQ(field("Depiction"), "file:///usr/share/doc/com.morvanel.sprigdial/depiction.html");
  const std::string description = field("Description");
  EXPECT_EQ(description.find("Gives every icon on the home screen a menu of maintenance commands\n "), 0U);
  for (const auto* word : {"10 to 14", "rootful", "2018", "arm64e"})
    EXPECT_NE(description.find(word), std::string::npos) << word;
}

TEST(DevicePackage, TellsItsSizeAndTheSumsOfItsFiles) {
  const sim::TemporaryFolder unpacked;
  linesOf("dpkg-deb --raw-extract " + package + " " + unpacked.path().string());
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::recursive_directory_iterator(unpacked.path()))
    if (entry.is_regular_file() && entry.path().parent_path().filename() != "DEBIAN") bytes += entry.file_size();
  EXPECT_EQ(field("Installed-Size"), std::to_string((bytes + 1023) / 1024));
  EXPECT_EQ(linesOf("cd " + unpacked.path().string() + " && md5sum --check --strict DEBIAN/md5sums").size(), 16U);
}

TEST(DevicePackage, IsReadByTheOldestInstallers) {
  EXPECT_EQ(linesOf("ar t " + package), (Lines{"debian-binary", "control.tar.gz", "data.tar.gz"}));
  EXPECT_EQ(linesOf("ar p " + package + " debian-binary"), Lines{"2.0"});
  for (const auto* member : {"control.tar.gz", "data.tar.gz"})
    linesOf("ar p " + package + " " + member + " | gzip --test");
}

TEST(DevicePackage, FilterNamesTheHomeScreenAndNothingElse) {
  EXPECT_EQ(linesOf("dpkg-deb --fsys-tarfile " + package +
                    " | tar -xO -f - ./Library/MobileSubstrate/DynamicLibraries/Sprigdial.plist"),
            Lines{"{Filter={Bundles=(com.apple.springboard);};}"});
}

TEST(DevicePackage, HoldsTheImagesThatWereBuilt) {
  const std::map<std::string, std::string> images = {
      {"./Library/MobileSubstrate/DynamicLibraries/Sprigdial.dylib", test::deviceLibrary},
      {"./Library/PreferenceBundles/SprigdialSettings.bundle/SprigdialSettings", test::devicePane}};
  for (const auto& [path, built] : images)
    EXPECT_EQ(
        linesOf("dpkg-deb --fsys-tarfile " + package + " | tar -xO -f - " + path + " | sha256sum")[0].substr(0, 64),
        sum(built));
}

TEST(DevicePackage, HasNothingThatDebiansCheckerFindsWrong) {
  const std::string check =
      "lintian --no-cfg --allow-root --pedantic --display-info --display-experimental "
      "--fail-on error,warning,info,pedantic,experimental --suppress-tags-from-file " +
      test::sourceFile("packaging/lintian.txt") + " " + package;
  EXPECT_EQ(linesOf(check), Lines());
}

// From the sources to the package in another folder, with another mask for new files and another zone.
TEST(DevicePackage, IsTheSameFromAnotherFolderAtAnotherTime) {
  const sim::TemporaryFolder other;
  const std::string sources = (other.path() / "with a blank").string();
  fs::create_directory(sources);
  linesOf("cd " + std::string(test::sourceFolder) +
          " && tar -c --exclude=./build --exclude=./.git --exclude=./.device . | tar -x -C '" + sources + "'");
  const auto told = linesOf("cd / && umask 077 && TZ=Asia/Tokyo LC_ALL=C CCACHE_DISABLE=1 '" + sources + "/package'");
  const std::string path = "build/device/" + fs::path(package).filename().string();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[0], path);
  EXPECT_EQ(told[1], std::to_string(fs::file_size(package)) + " bytes, SHA-256 " + sum(package));
  EXPECT_EQ(sum("'" + sources + "/" + path + "'"), sum(package));
}

TEST(DevicePackage, IsTheSameWhenPackedAgain) {
  const sim::TemporaryFolder again;
  const std::string build = fs::path(package).parent_path().string();
  linesOf("cd " + std::string(test::sourceFolder) + " && packaging/build " + build + "/package-files.txt " + build +
          "/package-control gzip " + again.path().string() + "/tree " + again.path().string() + "/again.deb");
  EXPECT_EQ(sum(again.path() / "again.deb"), sum(package));
}

TEST(PackageCommand, RefusesWhatItDoesNotKnow) {
  const std::string command = test::sourceFile("package");
  for (const auto* word : {"--nonsense", "word"}) {
    const auto told = linesOf(command + " " + word + " 2>&1; echo $?");
    ASSERT_EQ(told.size(), 2U);
    EXPECT_NE(told[0].find(word), std::string::npos);
    EXPECT_EQ(told[1], "2");
  }
}

// What the scripts ask of an installer, by each shell that a phone may have.
class PackageScripts : public testing::TestWithParam<const char*> {
 protected:
  /// What arrives at descriptor `number` when the script runs with these words and this CYDIA ("" for none).
  std::string asked(const std::string& script, const std::string& words, const std::string& cydia,
                    const std::string& number) {
    linesOf("dpkg-deb --control " + package + " " + folder_.path().string() + "/control");
    const std::string at = folder_.path() / "asked";
    const std::string variable = cydia.empty() ? "env -u CYDIA " : "CYDIA='" + cydia + "' ";
    linesOf("bash -c \"" + variable + GetParam() + " " + folder_.path().string() + "/control/" + script + " " + words +
            " " + number + ">" + at + "\"");
    return sim::readFile(at).value_or("");
  }

 private:
  sim::TemporaryFolder folder_;
};

TEST_P(PackageScripts, AskForANewHomeScreenAfterInstalling) {
  EXPECT_EQ(asked("postinst", "configure", "5 1", "5"), "finish:restart\n");
}

TEST_P(PackageScripts, AskForOneAfterUpgrading) {
  EXPECT_EQ(asked("postinst", "configure 0.9.0", "5 1", "5"), "finish:restart\n");
}

TEST_P(PackageScripts, AskForOneAfterRemoving) { EXPECT_EQ(asked("postrm", "remove", "5 1", "5"), "finish:restart\n"); }

TEST_P(PackageScripts, AskAtADescriptorOfTwoDigits) {
  EXPECT_EQ(asked("postinst", "configure", "12 1", "12"), "finish:restart\n");
}

TEST_P(PackageScripts, AskNothingWhileMoreIsToCome) {
  EXPECT_EQ(asked("postrm", "upgrade 2.0", "5 1", "5"), "");
  EXPECT_EQ(asked("postinst", "abort-remove", "5 1", "5"), "");
}

TEST_P(PackageScripts, DoNoHarmWhereNobodyListens) {
  for (const auto* cydia : {"", "9 1", "x 1", "-1 1", " ", "5;touch /tmp/x 1"})
    EXPECT_EQ(asked("postinst", "configure", cydia, "5"), "") << cydia;
}

INSTANTIATE_TEST_SUITE_P(, PackageScripts, testing::Values("bash", "dash"),
                         [](const auto& info) { return std::string(info.param); });
