// Whatever lies in the files, the home screen stays up.
#include <fstream>

#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.test";
class HostileFiles : public test::Generations {};
/// An application with very many caches.
class HostileFilesMany : public test::Generations {
 protected:
  void SetUp() override {
#if __has_feature(address_sanitizer)
    GTEST_SKIP() << "the address sanitizer keeps freed memory back: the figure would be its own";
#endif
    // Dead objects are let go here: kept ones would be all that is measured.
    phone.options().environment["NSZombieEnabled"] = "NO";
    phone.install({});
    caches = phone.container(app) / "Library/Caches";
    std::filesystem::create_directories(caches);
    for (int i = 0; i < 20'000; ++i) std::ofstream(caches / std::to_string(i)) << i;
    phone.touch(app);
  }
  // By how many KiB the most memory held has grown.
  long grownBy(const std::function<void()>& action) {
    const auto most = [&] { return phone.ask("memory").at("peakKiB").get<long>(); };
    const long before = most();
    action();
    return most() - before;
  }
  std::filesystem::path caches;
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, HostileFiles, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, HostileFilesMany, test::bothGenerations, test::generationName);

TEST_P(HostileFiles, ALinkLoopInTheCachesEnds) {
  phone.install({});
  const auto caches = phone.container(app) / "Library/Caches";
  std::filesystem::create_directories(caches / "a");
  std::filesystem::create_symlink("../a", caches / "a/again");
  std::filesystem::create_symlink("b", caches / "c");
  std::filesystem::create_symlink("c", caches / "b");
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(HostileFiles, NamesThatAreNoTextAreCountedAndCleared) {
  phone.install({});
  const auto caches = phone.container(app) / "Library/Caches";
  const std::string mixed = "100%FF 50%/\xc3\xa9\xc3/\xed\xa0\x80%41";
  phone.addCache(app, "bad\xff\xfename", 1572864);
  phone.addCache(app, mixed, 524288);
  phone.addCache(app, "bad%FF%FE", 1048576);
  phone.addCache(app, "100%", 1048576);
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle(), "Clear Caches(4 MB)");
  phone.tap("Clear Caches(4 MB)").tap("YES").tap("OK");
  EXPECT_TRUE(std::filesystem::is_directory(caches));
  EXPECT_TRUE(std::filesystem::is_empty(caches));
}

TEST_P(HostileFiles, ABundleWhoseNameIsNoTextIsAnApplication) {
  phone.install({.name = "", .folder = "Bad\xff.app"});
  EXPECT_EQ(phone.icon(app).label, "Bad%FF");
  phone.openMenu();
  EXPECT_EQ(phone.alert().title, "Bad%FF");
}

TEST_P(HostileFiles, AFileInTheCachesPlaceHasNoSize) {
  phone.install({.hasCaches = false});
  sim::writeFile(phone.container(app) / "Library/Caches", "no folder");
  phone.openMenu();
  EXPECT_EQ(phone.cacheTitle(), "Clear Caches(0 MB)");
}

TEST_P(HostileFilesMany, NeedNoMoreMemoryThanTheirNamesInTheMenu) {
  const long grown = grownBy([&] { phone.openMenu(); });
  EXPECT_TRUE(phone.showsAlert());
  // A name and its place in the list take some 200 bytes; the attributes of all files would take 20 MB and more.
  EXPECT_LT(grown, 12 * 1024) << "KiB";
}

TEST_P(HostileFilesMany, NeedNoMoreMemoryThanTheirNamesWhenTheyAreCleared) {
  phone.perform("clearCaches");
  const long grown = grownBy([&] { phone.tap("YES"); });
  EXPECT_TRUE(std::filesystem::is_empty(caches));
  EXPECT_LT(grown, 6 * 1024) << "KiB";
}

TEST_P(HostileFiles, WebClipsAndDamagedBundlesBesideApplications) {
  std::filesystem::create_directories(phone.path("/var/containers/Bundle/Application/empty"));
  sim::writeFile(phone.path("/var/containers/Bundle/Application/bad/Bad.app/Info.plist"), "nonsense");
  sim::writeFile(phone.path("/var/mobile/Library/WebClips/Odd.webclip/Info.plist"), "nonsense");
  phone.openMenu("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
}

// Nobody sends them before an icon was touched; whoever does brings nothing down and changes no file but its own.
TEST_P(HostileFiles, AddedMethodsWithoutAnApplicationBringNothingDown) {
  phone.screen();  // starting up makes a file of its own
  auto before = test::filesBelow(phone.device().root() / "var");
  for (const auto* method : {"showAlertView", "clearBadges", "setBadges", "clearCaches", "clearCachesSucces",
                             "deleteBackUp", "deleteBackUpSucces", "backUpData", "backUpDataSucces", "restoreData",
                             "restoreDataSucces", "resetAppData", "resetAppDataSucces", "openInFilzaApp",
                             "openInFilzaData", "muteNotifications", "openApps", "showLoadingView"}) {
    SCOPED_TRACE(method);
    phone.perform(method);
    for (const auto* button : {"YES", "Apply", "OK"})
      if (phone.showsAlert() && phone.hasButton(button)) phone.tap(button);
    phone.lock().unlock().advance(1);
    EXPECT_TRUE(phone.screen().windows.empty());
  }
  EXPECT_TRUE(phone.launches().empty());
  auto after = test::filesBelow(phone.device().root() / "var");
  std::erase_if(after, [&](const auto& file) { return file.first.find("Documents/Sprigdial") != std::string::npos; });
  std::erase_if(before, [&](const auto& file) { return file.first.find("Documents/Sprigdial") != std::string::npos; });
  EXPECT_EQ(after, before);
}
