// Packages on a device: what comes with them, what stays when they go, and what the home screen makes of them.
#include "simulator/device/packages.hpp"

#include <elf.h>

#include <algorithm>
#include <cstring>
#include <fstream>

#include "tests/support/command.hpp"
#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

const std::string addOn(sim::addOnPackage);
const std::string notes = "com.example.notes";
const std::string folder = "/Library/MobileSubstrate/DynamicLibraries";
const std::string image = folder + "/Sprigdial.dylib";
const std::string filter = folder + "/Sprigdial.plist";
const fs::path pcPackage = fs::path(test::buildFolder) / "Sprigdial.deb";
const fs::path pcTree = fs::path(test::buildFolder) / "package";

class Packages : public test::Generations {
 protected:
  /// A package as other people make them: a folder with a control file in DEBIAN.
  fs::path pack(const std::string& name, const std::string& version, const std::map<std::string, std::string>& files,
                const std::string& fields = "Architecture: all\n") {
    const fs::path tree = work.path() / (name + version);
    fs::create_directories(tree / "DEBIAN");
    for (const auto& [path, content] : files) sim::writeFile(tree / path.substr(1), content);
    const std::string control = "Package: " + name + "\nVersion: " + version + "\nMaintainer: nobody\n" + fields;
    sim::writeFile(tree / "DEBIAN/control", control + "Description: a test\n");
    for (const auto* script : {"postinst", "postrm", "preinst"})
      if (fs::exists(tree / "DEBIAN" / script)) fs::permissions(tree / "DEBIAN" / script, fs::perms(0755));
    return packTree(tree);
  }
  fs::path packTree(const fs::path& tree) const {
    fs::path file = tree.string() + ".deb";
    linesOf("dpkg-deb --root-owner-group -Zgzip --build " + tree.string() + " " + file.string() + " 2>&1");
    return file;
  }
  /// The PC's package as it is unpacked, to be changed and packed again.
  fs::path unpacked() const {
    fs::path tree = work.path() / "changed";
    linesOf("dpkg-deb --raw-extract " + pcPackage.string() + " " + tree.string());
    return tree;
  }
  static void replaceIn(const fs::path& file, const std::string& from, const std::string& to) {
    std::string content = sim::readFile(file).value();
    ASSERT_NE(content.find(from), std::string::npos);
    std::ofstream(file) << content.replace(content.find(from), from.size(), to);
  }

  bool worksWithTheAddOn() { return phone.openMenu(notes).showsAlert(); }
  /// Everything on the device but the applications, which are large.
  std::map<std::string, std::string> everything() const {
    std::map<std::string, std::string> all;
    for (const auto* part : {"/Library", "/usr", "/etc", "/tmp", "/var/lib", "/var/mobile/Library"})
      all.merge(test::filesBelow(phone.path(part)));
    for (const auto& entry : fs::directory_iterator(phone.device().root())) all[entry.path()];
    return all;
  }
  Lines installed() const {
    Lines all;
    for (const auto& package : sim::installedPackages(phone.device()))
      all.push_back(package.name + " " + package.version);
    return all;
  }
  void expectRefused(const fs::path& file, const std::string& reason) {
    const auto before = everything();
    try {
      phone.installPackage(file);
      ADD_FAILURE() << "was installed, though it " << reason;
    } catch (const sim::BadInput& refused) {
      const std::string told = refused.what();
      EXPECT_NE(told.find(reason), std::string::npos) << told;
      EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 0) << told;
    }
    EXPECT_EQ(everything(), before);
  }

  sim::TemporaryFolder work;
};

/// A home screen that comes up without an add-on and says why.
class UnfitAddOns : public Packages {
 protected:
  void expectNotMapped(const std::string& reason) {
    EXPECT_EQ(phone.events(), Lines{"Sprigdial.dylib is not mapped: " + reason});
    EXPECT_NE(phone.output().find("Sprigdial.dylib is not mapped: " + reason), std::string::npos);
    EXPECT_TRUE(phone.calls().empty());
    EXPECT_FALSE(worksWithTheAddOn());
    EXPECT_FALSE(phone.screen().icons.empty());
  }
  void setFilter(const std::string& content) { sim::writeFile(phone.path(filter), content); }
  void setImage(const std::string& content) { sim::writeFile(phone.path(image), content); }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(, Packages, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, UnfitAddOns, test::bothGenerations, test::generationName);

TEST_P(Packages, TheAddOnsComesWithTheDevice) {
  EXPECT_EQ(installed(), (Lines{"base 1", addOn + " " + linesOf("dpkg-deb -f " + pcPackage.string() + " Version")[0]}));
  EXPECT_TRUE(phone.events().empty());
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(Packages, WhatIsInstalledIsTheTreeThatWasBuilt) {
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(pcTree)) {
    const fs::path onDevice = phone.path("/" + fs::relative(entry.path(), pcTree).string());
    EXPECT_EQ(fs::status(onDevice).permissions(), entry.status().permissions()) << onDevice;
    if (!entry.is_regular_file()) continue;
    EXPECT_EQ(sim::readFile(onDevice), sim::readFile(entry.path())) << onDevice;
    ++files;
  }
  EXPECT_GE(files, 5U);
}

TEST_P(Packages, TheSameFilesGoOntoAPhone) {
  const auto names = [](const fs::path& package) {
    return linesOf("dpkg-deb --fsys-tarfile " + package.string() + " | tar -t -f -");
  };
  EXPECT_EQ(names(pcPackage), names(test::devicePackage));
}

TEST_P(Packages, TheDatabaseIsReadByDebiansInstaller) {
  const std::string query = "dpkg-query --admindir=" + phone.path("/var/lib/dpkg").string() + " ";
  EXPECT_EQ(linesOf(query + "-W -f '${Package} ${Status}\\n'"),
            (Lines{"base install ok installed", addOn + " install ok installed"}));
  const auto files = linesOf(query + "-L " + addOn);
  EXPECT_EQ(files.front(), "/.");
  EXPECT_NE(std::find(files.begin(), files.end(), image), files.end());
  EXPECT_EQ(linesOf("dpkg --root=" + phone.device().root().string() + " --verify " + addOn), Lines());
}

TEST_P(Packages, AnOlderDeviceGetsTheAddOnWhenItIsOpened) {
  fs::remove_all(phone.path("/var/lib/dpkg"));
  fs::remove_all(phone.path("/Library"));
  const sim::Device opened(phone.device().root());
  EXPECT_EQ(installed().size(), 2U);
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(Packages, ADeviceWithoutTheAddOnStaysSo) {
  phone.removeAddOn();
  const sim::Device opened(phone.device().root());
  sim::updateAddOn(opened);
  EXPECT_EQ(installed(), Lines{"base 1"});
  EXPECT_FALSE(worksWithTheAddOn());
}

TEST_P(Packages, TheAddOnIsFoundByItsFilterWhateverItsName) {
  fs::rename(phone.path(image), phone.path(folder + "/Other name.dylib"));
  fs::rename(phone.path(filter), phone.path(folder + "/Other name.plist"));
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(Packages, AFilterMayNameOtherBundlesToo) {
  sim::writeFile(phone.path(filter), "{Filter={Bundles=(com.example.one, com.apple.springboard);};}");
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(Packages, AddOnsAreMappedInTheOrderOfTheirNames) {
  for (const auto* name : {"Zebra", "Antelope"}) {
    const std::string source = std::string("extern int puts(const char*); extern int fflush(void*);") +
                               "__attribute__((constructor)) static void f(void) { puts(\"here is " + name +
                               "\"); fflush(0); }";
    sim::writeFile(work.path() / "add_on.c", source);
    linesOf("clang-16 -shared -fPIC -o " + phone.path(folder + "/" + name + ".dylib").string() + " " +
            (work.path() / "add_on.c").string());
    fs::copy(phone.path(filter), phone.path(folder + "/" + name + ".plist"));
  }
  EXPECT_TRUE(worksWithTheAddOn());
  EXPECT_TRUE(phone.events().empty());
  const std::string output = phone.output();
  EXPECT_LT(output.find("here is Antelope"), output.find("here is Zebra"));
}

TEST_P(UnfitAddOns, OneThatNamesAnotherBundle) {
  setFilter("{Filter={Bundles=(com.example.notes);};}");
  expectNotMapped("its filter does not name com.apple.springboard");
}

TEST_P(UnfitAddOns, OneThatNamesNoBundle) {
  for (const auto* content : {"{}", "{Filter={};}", "{Filter=();}", "{Filter={Bundles=com.apple.springboard;};}",
                              "{Filter={Bundles=((com.apple.springboard));};}", "{Bundles=(com.apple.springboard);}"}) {
    SCOPED_TRACE(content);
    setFilter(content);
    phone.booted() ? phone.respring() : phone.boot();
    expectNotMapped("its filter does not name com.apple.springboard");
  }
}

TEST_P(UnfitAddOns, OneThatAsksForWhatLoadersDisagreeAbout) {
  setFilter("{Filter={Bundles=(com.apple.springboard);Mode=Any;};}");
  expectNotMapped("its filter asks for more than bundles: Mode");
}

TEST_P(UnfitAddOns, OneWithADamagedFilter) {
  for (const auto* content : {"", "{Filter={Bundles=(com.apple.sp", "bplist00", "<plist><dict>", "\xff\xfe\x01"}) {
    SCOPED_TRACE(content);
    setFilter(content);
    phone.booted() ? phone.respring() : phone.boot();
    expectNotMapped("its filter cannot be read");
  }
}

TEST_P(UnfitAddOns, OneWithoutAFilter) {
  fs::remove(phone.path(filter));
  expectNotMapped("it has no filter");
}

TEST_P(UnfitAddOns, OneThatIsForAPhonesProcessor) {
  phone.useAddOn(test::deviceLibrary);
  expectNotMapped("it is an image for a phone's processor, not for this machine's");
}

TEST_P(UnfitAddOns, OneThatIsNoImage) {
  for (const std::string& content : {std::string(), std::string("no image"), std::string(8192, '\0')}) {
    setImage(content);
    phone.booted() ? phone.respring() : phone.boot();
    expectNotMapped("it is no image");
  }
}

TEST_P(UnfitAddOns, OneThatIsCutOff) {
  const std::string whole = sim::readFile(phone.path(image)).value();
  Elf64_Ehdr header;
  std::memcpy(&header, whole.data(), sizeof header);
  std::size_t end = 0;  // of what is mapped
  for (std::size_t index = 0; index < header.e_phnum; ++index) {
    Elf64_Phdr segment;
    std::memcpy(&segment, whole.data() + header.e_phoff + index * sizeof segment, sizeof segment);
    if (segment.p_type == PT_LOAD) end = std::max<std::size_t>(end, segment.p_offset + segment.p_filesz);
  }
  for (const std::size_t size : {std::size_t{100}, end / 2, end - 1}) {
    SCOPED_TRACE(size);
    setImage(whole.substr(0, size));
    phone.booted() ? phone.respring() : phone.boot();
    expectNotMapped("it is damaged");
  }
}

TEST_P(UnfitAddOns, OneThatNeedsWhatTheHomeScreenLacks) {
  sim::writeFile(work.path() / "add_on.c",
                 "void missingHere(void); __attribute__((constructor)) static void f(void) { missingHere(); }");
  linesOf("clang-16 -shared -fPIC -o " + phone.path(image).string() + " " + (work.path() / "add_on.c").string());
  expectNotMapped("undefined symbol: missingHere");
}

TEST_P(UnfitAddOns, OneAmongOthersLeavesThemAlone) {
  sim::writeFile(phone.path(folder + "/Broken.dylib"), "no image");
  fs::copy(phone.path(filter), phone.path(folder + "/Broken.plist"));
  EXPECT_EQ(phone.events(), Lines{"Broken.dylib is not mapped: it is no image"});
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(UnfitAddOns, APhonesPackageIsInstalledAllTheSame) {
  phone.boot();
  phone.installPackage(test::devicePackage);
  EXPECT_EQ(sim::readFile(phone.path(image)), sim::readFile(test::deviceLibrary));
  expectNotMapped("it is an image for a phone's processor, not for this machine's");
}

/// A phone that has been used: settings, a new name, a muted application, a backup.
class UsedPhone : public Packages {
 protected:
  void SetUp() override {
    phone.settings({"hideLabel=NO", "useCache=NO", "disableType=1"});
    phone.rename(notes, "Jotter");
    phone.openMenu(notes).tap("Mute Notification").tap("Forever");
    phone.advance(1);
    phone.openMenu(notes).tap("Backup Data").tap("OK").advance(1).flush();
    data = test::filesBelow(phone.path("/var/mobile"));
    const auto holds = [&](const std::string& part) {
      return std::any_of(data.begin(), data.end(),
                         [&](const auto& file) { return file.first.find(part) != std::string::npos; });
    };
    for (const auto* part : {"com.morvanel.sprigdial.plist", "com.morvanel.sprigdial.menu.plist",
                             "/Documents/Sprigdial/com.example.notes/"})
      ASSERT_TRUE(holds(part)) << part;
  }
  /// Everything is in force as it was before.
  void expectAllAsBefore() {
    EXPECT_EQ(test::filesBelow(phone.path("/var/mobile")), data);
    EXPECT_EQ(phone.icon(notes).label, "Jotter");
    phone.openMenu(notes);
    EXPECT_EQ(phone.cacheTitle(), "no cache entry");
    EXPECT_TRUE(phone.hasButton("Restore Data"));
    phone.tap("Cancel").notify(notes, "hello");
    EXPECT_EQ(phone.screen().lockScreen.size(), 0U);
  }

  std::map<std::string, std::string> data;
};
INSTANTIATE_TEST_SUITE_P(, UsedPhone, test::bothGenerations, test::generationName);

TEST_P(UsedPhone, KeepsItsDataWhenTheAddOnGoesAndComes) {
  phone.removePackage(addOn);
  EXPECT_FALSE(fs::exists(phone.path(image)));
  EXPECT_FALSE(fs::exists(phone.path(filter)));
  EXPECT_FALSE(fs::exists(phone.path("/usr/share/doc/com.morvanel.sprigdial")));
  EXPECT_TRUE(fs::exists(phone.path(folder)));
  EXPECT_EQ(installed(), Lines{"base 1"});
  for (const auto& entry : fs::directory_iterator(phone.path("/var/lib/dpkg/info")))
    EXPECT_EQ(entry.path().filename(), "base.list");
  EXPECT_EQ(test::filesBelow(phone.path("/var/mobile")), data);
  EXPECT_FALSE(worksWithTheAddOn());
  EXPECT_EQ(phone.icon(notes).label, "Notes") << "the application's own name";

  phone.installPackage(pcPackage);
  expectAllAsBefore();
}

TEST_P(UsedPhone, KeepsItsDataWhenTheAddOnIsUpgraded) {
  const fs::path newer = unpacked();
  replaceIn(newer / "DEBIAN/control", "Version: ", "Version: 99.");
  fs::rename(newer / "usr/share/doc/com.morvanel.sprigdial/menu.svg",
             newer / "usr/share/doc/com.morvanel.sprigdial/new");
  const auto package = phone.installPackage(packTree(newer));
  EXPECT_TRUE(package.version.starts_with("99."));
  EXPECT_FALSE(fs::exists(phone.path("/usr/share/doc/com.morvanel.sprigdial/menu.svg")));
  EXPECT_TRUE(fs::exists(phone.path("/usr/share/doc/com.morvanel.sprigdial/new")));
  EXPECT_EQ(installed(), (Lines{"base 1", addOn + " " + package.version}));
  expectAllAsBefore();
}

TEST_P(UsedPhone, KeepsItsDataWhenTheAddOnIsInstalledAgain) {
  phone.installPackage(pcPackage);
  expectAllAsBefore();
}

TEST_P(Packages, InstallingRestartsTheHomeScreenAsThePackageAsks) {
  phone.openMenu(notes);
  EXPECT_TRUE(phone.installPackage(pcPackage).wantsRestart);
  EXPECT_FALSE(phone.showsAlert());
  EXPECT_TRUE(worksWithTheAddOn());
}

TEST_P(Packages, RemovingRestartsTheHomeScreenAsThePackageAsks) {
  phone.openMenu(notes);
  EXPECT_TRUE(phone.removePackage(addOn).wantsRestart);
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Packages, APackageThatAsksForNothingLeavesTheHomeScreenAlone) {
  phone.openMenu(notes);
  EXPECT_FALSE(phone.installPackage(pack("org.example.words", "1", {{"/usr/share/doc/words", "a"}})).wantsRestart);
  EXPECT_TRUE(phone.showsAlert());
  phone.removePackage("org.example.words");
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Packages, APhoneThatIsOffStaysOff) {
  phone.installPackage(pcPackage);
  EXPECT_FALSE(phone.booted());
}

TEST_P(Packages, AFileThatIsInUseIsReplacedWhole) {
  phone.boot();
  const fs::path alias = work.path() / "in use";
  fs::create_hard_link(phone.path(image), alias);
  const auto before = sim::readFile(alias);
  phone.installPackage(test::devicePackage);
  EXPECT_EQ(sim::readFile(alias), before) << "what the process has mapped";
}

TEST_P(Packages, FoldersGoWhenNothingIsLeftInThem) {
  phone.installPackage(
      pack("org.example.one", "1", {{"/Library/Example/own/a", "a"}, {"/Library/Example/both/b", "b"}}));
  phone.installPackage(pack("org.example.two", "1", {{"/Library/Example/both/c", "c"}}));
  sim::writeFile(phone.path("/Library/Example/own/of the user"), "mine");
  phone.removePackage("org.example.one");
  EXPECT_EQ(sim::readFile(phone.path("/Library/Example/own/of the user")), "mine");
  EXPECT_FALSE(fs::exists(phone.path("/Library/Example/own/a")));
  EXPECT_FALSE(fs::exists(phone.path("/Library/Example/both/b")));
  EXPECT_EQ(sim::readFile(phone.path("/Library/Example/both/c")), "c");
  phone.removePackage("org.example.two");
  EXPECT_FALSE(fs::exists(phone.path("/Library/Example/both")));
}

TEST_P(Packages, AreNotRemovedWhenTheyAreNotThere) {
  const auto before = everything();
  for (const auto* name : {"com.example.nothing", "", "../base"})
    EXPECT_THROW(phone.removePackage(name), sim::BadInput) << name;
  EXPECT_EQ(everything(), before);
}

TEST_P(Packages, TheDevicesOwnStays) {
  const auto before = everything();
  EXPECT_THROW(phone.removePackage("base"), sim::BadInput);
  EXPECT_EQ(everything(), before);
}

TEST_P(Packages, WhatIsNoneIsRefused) {
  expectRefused(work.path() / "nothing.deb", "no such file");
  expectRefused(work.path(), "no such file");
  sim::writeFile(work.path() / "text.deb", "no package");
  expectRefused(work.path() / "text.deb", "cannot unpack");
  const std::string whole = sim::readFile(test::devicePackage).value();
  for (const std::size_t size : {80UL, 1000UL, whole.size() / 2, whole.size() - 100}) {
    SCOPED_TRACE(size);
    sim::writeFile(work.path() / "cut.deb", whole.substr(0, size));
    expectRefused(work.path() / "cut.deb", "cut.deb");
  }
  linesOf("cd " + work.path().string() + " && echo 2.0 >debian-binary && ar rc empty.deb debian-binary");
  expectRefused(work.path() / "empty.deb", "is no package");
}

TEST_P(Packages, OneForAnotherKindOfDeviceIsRefused) {
  expectRefused(pack("org.example.pc", "1", {{"/usr/share/doc/a", "a"}}, "Architecture: amd64\n"),
                "is for another kind of device: amd64");
}

TEST_P(Packages, OneWithAScriptThatNobodyRunsIsRefused) {
  expectRefused(pack("org.example.early", "1", {{"/DEBIAN/preinst", "#!/bin/sh\nexit 0\n"}}),
                "\"./preinst\" is nothing that this device's installer knows");
}

TEST_P(Packages, OneWhoseScriptFailsIsNotInstalledWhole) {
  const fs::path package = pack("org.example.bad", "1",
                                {{"/DEBIAN/postinst", "#!/bin/sh\necho no luck\nexit 3\n"}, {"/usr/share/doc/a", "a"}});
  try {
    phone.installPackage(package);
    FAIL();
  } catch (const sim::BadInput& failed) {
    EXPECT_NE(std::string(failed.what()).find("no luck"), std::string::npos) << failed.what();
  }
  EXPECT_NE(sim::readFile(phone.path("/var/lib/dpkg/status"))->find("org.example.bad\nStatus: install ok unpacked"),
            std::string::npos);
}

TEST_P(Packages, OneThatHoldsWhatAnotherOwnsIsRefused) {
  expectRefused(pack("org.example.thief", "1", {{"/usr/share/doc/new", "a"}, {image, "mine now"}}),
                "belongs to com.morvanel.sprigdial");
}

TEST_P(Packages, OneWhoseFilesHaveNoPlaceIsRefused) {
  expectRefused(pack("org.example.a", "1", {{"/usr/share/doc/new", "a"}, {"/Library/PreferenceBundles", "file"}}),
                "is a folder on the device");
  sim::writeFile(phone.path("/Library/file"), "");
  expectRefused(pack("org.example.b", "1", {{"/usr/share/doc/new", "a"}, {"/Library/file/below", "file"}}),
                "is a file on the device");
}

TEST_P(Packages, OneThatLeadsOutOfTheDeviceIsRefused) {
  fs::create_symlink("../../..", phone.path("/Library/out"));
  expectRefused(pack("org.example.c", "1", {{"/usr/share/doc/new", "a"}, {"/Library/out/file", "a"}}),
                "leads out of the device");
}

/// Packages that were made to do harm: a name in the archive of files, and how tar is told to put it there.
struct Hostile {
  std::string name, making, reason;
};
void PrintTo(const Hostile& hostile, std::ostream* stream) { *stream << hostile.name; }

class HostilePackages : public Packages {
 protected:
  /// A package whose files are packed by this command, in a folder that holds a file "a" and a folder "f".
  fs::path packed(const std::string& making) const {
    const std::string at = work.path().string();
    linesOf("cd " + at + " && mkdir f control && echo content >a && echo 2.0 >debian-binary && " +
            "printf 'Package: org.example.hostile\\nVersion: 1\\nArchitecture: all\\n' >control/control && " +
            "tar -czf control.tar.gz -C control control && { " + making + "; } && gzip data.tar && " +
            "ar rc hostile.deb debian-binary control.tar.gz data.tar.gz");
    return work.path() / "hostile.deb";
  }
};
INSTANTIATE_TEST_SUITE_P(, HostilePackages, test::bothGenerations, test::generationName);

TEST_P(HostilePackages, AreRefused) {
  const Hostile all[] = {
      {"dots", "tar -cPf data.tar --transform='s,^a,./usr/../../../a,' a", "leads out of the archive"},
      {"absolute", "tar -cPf data.tar --transform='s,^a,/tmp/a,' a", "is an absolute path"},
      {"symbolic link", "ln -s /etc f/l; tar -cf data.tar a f", "is a link"},
      {"hard link", "ln a f/l; tar -cf data.tar a f", "is a link"},
      {"file through a link", "ln -s /etc l; tar -cf data.tar l; rm l; mkdir l; cp a l; tar -rf data.tar l/a",
       "is a link"},
      {"pipe", "mkfifo f/p; tar -cf data.tar a f", "is no file or folder"},
      {"twice", "tar -cf data.tar a; tar -rf data.tar a", "is there already"},
      {"file as folder", "tar -cf data.tar a; rm a; mkdir a; echo x >a/b; tar -rf data.tar a/b", "is there already"},
  };
  for (const Hostile& hostile : all) {
    SCOPED_TRACE(hostile.name);
    for (const auto& entry : fs::directory_iterator(work.path())) fs::remove_all(entry);
    expectRefused(packed(hostile.making), hostile.reason);
  }
}

TEST_P(HostilePackages, AreNotWhatAnHonestOneIs) {
  phone.installPackage(packed("tar -cf data.tar ./a ./f"));
  EXPECT_EQ(sim::readFile(phone.path("/a")), "content\n");
}
