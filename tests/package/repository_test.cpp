// The repository that `./package --repository` makes, read by Debian's own package manager.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/device/files.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

const std::string addOn = "com.morvanel.sprigdial";
const std::string name = fs::path(test::devicePackage).filename();

class Repository : public testing::Test {
 protected:
  void SetUp() override {
    linesOf("cd " + std::string(test::sourceFolder) + " && packaging/publish " + test::devicePackage + " " +
            repository.string() + " " + url + " 2>&1");
    for (const auto* folder : {"etc/apt/apt.conf.d", "etc/apt/preferences.d", "etc/apt/trusted.gpg.d",
                               "var/lib/apt/lists/partial", "var/cache/apt/archives/partial", "var/lib/dpkg"})
      fs::create_directories(phone / folder);
    sim::writeFile(phone / "var/lib/dpkg/status", "");
    sim::writeFile(phone / "etc/apt/sources.list", "deb [trusted=yes] " + url + " ./\n");
  }
  /// A package manager with a folder of its own.
  Lines apt(const std::string& command) const {
    return linesOf(
        "cd " + phone.string() + " && LC_ALL=C " + command + " -q -o Dir=" + phone.string() +
        " -o Dir::State::status=" + (phone / "var/lib/dpkg/status").string() +
        " -o APT::Architecture=iphoneos-arm -o APT::Architectures=iphoneos-arm -o APT::Sandbox::User=root 2>&1");
  }
  std::string field(const std::string& key) const {
    for (const auto& line : apt("apt-cache show " + addOn))
      if (line.starts_with(key + ": ")) return line.substr(key.size() + 2);
    return "";
  }
  /// Where a page's address leads on this machine.
  fs::path behind(const std::string& address) const {
    EXPECT_TRUE(address.starts_with(url + "/")) << address;
    return repository / address.substr(url.size() + 1);
  }

  sim::TemporaryFolder folder;
  fs::path repository = folder.path() / "repository", phone = folder.path() / "phone";
  std::string url = "file://" + repository.string();
};

}  // namespace

TEST_F(Repository, APackageManagerFindsDownloadsAndVerifies) {
  apt("apt-get update -o APT::Update::Error-Mode=any");
  EXPECT_EQ(field("Package"), addOn);
  EXPECT_EQ(field("Name"), "Sprigdial");
  EXPECT_EQ(field("Section"), "Tweaks");
  apt("apt-get download " + addOn);
  EXPECT_EQ(sim::readFile(phone / name), sim::readFile(test::devicePackage));
}

TEST_F(Repository, AChangedPackageIsNotTaken) {
  apt("apt-get update");
  std::fstream(repository / name, std::ios::in | std::ios::out | std::ios::binary).seekp(5000).put('!');
  EXPECT_THROW(apt("apt-get download " + addOn), std::runtime_error);
}

TEST_F(Repository, AChangedIndexIsNotTaken) {
  for (const auto* index : {"Packages", "Packages.gz"}) std::ofstream(repository / index, std::ios::app) << "\n";
  EXPECT_THROW(apt("apt-get update -o APT::Update::Error-Mode=any"), std::runtime_error);
}

TEST_F(Repository, TheIndexesSayTheSame) {
  EXPECT_EQ(linesOf("gzip -dc " + (repository / "Packages.gz").string()),
            linesOf("cat " + (repository / "Packages").string()));
}

TEST_F(Repository, HasThePagesThatItTellsOf) {
  apt("apt-get update");
  const auto page = sim::readFile(behind(field("Depiction")));
  ASSERT_TRUE(page);
  EXPECT_NE(page->find("<img src=\"menu.svg\""), std::string::npos);
  EXPECT_TRUE(fs::exists(repository / "menu.svg"));

  const auto native = nlohmann::json::parse(sim::readFile(behind(field("SileoDepiction"))).value());
  EXPECT_EQ(native.at("class"), "DepictionTabView");
  for (const auto& view : native.at("tabs").at(0).at("views"))
    if (view.contains("URL")) EXPECT_EQ(sim::readFile(behind(view.at("URL"))).value().substr(1, 3), "PNG");
}

TEST_F(Repository, KeepsEarlierVersions) {
  const fs::path tree = folder.path() / "newer";
  linesOf("dpkg-deb --raw-extract " + std::string(test::devicePackage) + " " + tree.string() +
          " && sed -i 's/^Version: /&99./' " + (tree / "DEBIAN/control").string() +
          " && dpkg-deb --root-owner-group -Zgzip --build " + tree.string() + " " +
          (folder.path() / "newer.deb").string());
  linesOf("cd " + std::string(test::sourceFolder) + " && packaging/publish " + (folder.path() / "newer.deb").string() +
          " " + repository.string() + " " + url + " 2>&1");
  apt("apt-get update");
  EXPECT_TRUE(field("Version").starts_with("99."));
  const auto all = apt("apt-cache madison " + addOn);
  EXPECT_EQ(all.size(), 2U);
}

TEST_F(Repository, TheCommandPutsThePackageThere) {
  const fs::path made = folder.path() / "of-the-command";
  const auto told =
      linesOf("cd " + folder.path().string() + " && " + test::sourceFile("package") + " --repository of-the-command");
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[2], made.string());
  EXPECT_EQ(sim::readFile(made / name), sim::readFile(test::devicePackage));
  EXPECT_NE(sim::readFile(made / "Packages")->find("Depiction: file://" + made.string() + "/depiction.html\n"),
            std::string::npos);
}

TEST_F(Repository, TheCommandRefusesWhatIsNone) {
  const fs::path other = folder.path() / "other";
  sim::writeFile(other / "mine", "kept");
  const std::string command = test::sourceFile("package") + " ";
  for (const std::string& words :
       {"--repository " + other.string(), "--repository " + (other / "mine").string(), std::string("--repository"),
        std::string("--url https://example.org"), "--repository " + (other / "new").string() + " --url nowhere",
        "--repository " + (other / "new").string() + " --url 'https://a b'",
        "--repository '" + (other / "a b").string() + "'"}) {
    const auto told = linesOf(command + words + " 2>&1; echo $?");
    ASSERT_EQ(told.size(), 2U) << words;
    EXPECT_EQ(told[1], "2") << words;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(other), {}), 1);
  EXPECT_EQ(sim::readFile(other / "mine"), "kept");
}
