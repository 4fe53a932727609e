// Opening folders in the file manager.
#include "tests/support/home.hpp"

namespace {
const std::string app = "com.example.test";
class FileManager : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, FileManager, test::bothGenerations, test::generationName);

TEST_P(FileManager, OpensTheBundlesPropertyList) {
  home.install({});
  const auto bundle = home.device().application(app)->bundle.string();
  home.openMenu();
  home->tap("Open in Filza [App]");
  ASSERT_EQ(home->urls().size(), 1U);
  EXPECT_EQ(home->urls()[0].url, "filza:/" + bundle + "/Info.plist");
  EXPECT_TRUE(home->urls()[0].opened);
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(FileManager, OpensTheBundleFolderWithoutOne) {
  home.install({});
  const auto bundle = home.device().application(app)->bundle.string();
  home.swipeUp(app, 0, -0.5);
  std::filesystem::remove(home.path(bundle) / "Info.plist");
  home->perform("openInFilzaApp");
  EXPECT_EQ(home->urls()[0].url, "filza:/" + bundle + (isOld() ? "" : "/"));
}

TEST_P(FileManager, OpensTheDocumentsFolderThereOrNot) {
  home.install({});
  std::filesystem::remove_all(home.container(app) / "Documents");
  home.openMenu();
  home->tap("Open in Filza [Data]");
  EXPECT_EQ(home->urls()[0].url, "filza:/" + home.device().application(app)->data.string() + "/Documents");
}

TEST_P(FileManager, NotInstalledTheRequestFails) {
  home.install({});
  home.removeFileManager();
  home.swipeUp(app, 0, -0.5);
  home->perform("openInFilzaData");
  EXPECT_FALSE(home->urls()[0].opened);
}

TEST_P(FileManager, ShowsNoAlertAndChangesNothing) {
  home.install({});
  home.screen();  // starting up makes a file of its own
  const auto before = test::filesBelow(home.device().root() / "var");
  for (const auto* entry : {"Open in Filza [App]", "Open in Filza [Data]"}) {
    home.openMenu();
    home->tap(entry);
    EXPECT_TRUE(home.screen().windows.empty());
    home->home().advance(1);
  }
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), before);
}

TEST_P(FileManager, IsAskedForTheFolderOfWhatIsCurrentWhenTapped) {
  home.install({});
  home.openMenu();
  home.touchInSpite("com.example.notes");
  home->tap("Open in Filza [Data]");
  EXPECT_EQ(home->urls()[0].url,
            "filza:/" + home.device().application("com.example.notes")->data.string() + "/Documents");
}

TEST_P(FileManager, AnUnknownApplicationHasNoBundleToOpen) {
  home.install({});
  home.swipeUp(app, 0, -0.5);
  std::filesystem::remove_all(home.bundle(app).parent_path());
  home->rescan();
  home->perform("openInFilzaApp");
  home->perform("openInFilzaData");
  EXPECT_FALSE(home.showsAlert());
  ASSERT_EQ(home->urls().size(), 1U) << "of the data alone";
  EXPECT_EQ(home->urls()[0].url, "filza:/(null)/Documents");
}

TEST_P(FileManager, AnApplicationWithoutAContainerHasNoFolderToOpen) {
  home.install({.hasContainer = false, .hasCaches = false});
  home.swipeUp(app, 0, -0.5);
  home->perform("openInFilzaData");
  ASSERT_EQ(home->urls().size(), 1U);
  EXPECT_EQ(home->urls()[0].url, "filza:/(null)/Documents");
}

TEST_P(FileManager, ABlankInTheContainersPathOpensNothing) {
  home.install({});
  const auto container = home.container(app);
  std::filesystem::rename(container, container.string() + " moved");
  home.swipeUp(app, 0, -0.5);
  home->rescan();
  home->touch(app).perform("openInFilzaData");
  EXPECT_TRUE(home->urls().empty());
}

// A text that is no address opens nothing; nothing is encoded on the way.
TEST_P(FileManager, ABlankInTheBundlePathStaysEncoded) {
  home.install({.folder = "Te st.app"});
  const auto bundle = home.device().application(app)->bundle.string();
  home.swipeUp(app, 0, -0.5);
  home->perform("openInFilzaApp");
  std::string encoded = bundle;
  encoded.replace(encoded.find(' '), 1, "%20");
  ASSERT_EQ(home->urls().size(), 1U);
  EXPECT_EQ(home->urls()[0].url, "filza:/" + encoded + (isOld() ? "" : "/"));
}
