// Opening folders in the file manager.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.test";
class FileManager : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, FileManager, test::bothGenerations, test::generationName);

TEST_P(FileManager, OpensTheBundlesPropertyList) {
  phone.install({});
  const auto bundle = phone.device().application(app)->bundle.string();
  phone.openMenu();
  phone.tap("Open in Filza [App]");
  ASSERT_EQ(phone.urls().size(), 1U);
  EXPECT_EQ(phone.urls()[0].url, "filza:/" + bundle + "/Info.plist");
  EXPECT_TRUE(phone.urls()[0].opened);
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(FileManager, OpensTheBundleFolderWithoutOne) {
  phone.install({});
  const auto bundle = phone.device().application(app)->bundle.string();
  phone.touch(app);
  std::filesystem::remove(phone.path(bundle) / "Info.plist");
  phone.perform("openInFilzaApp");
  EXPECT_EQ(phone.urls()[0].url, "filza:/" + bundle + (isOld() ? "" : "/"));
}

TEST_P(FileManager, OpensTheDocumentsFolderThereOrNot) {
  phone.install({});
  std::filesystem::remove_all(phone.container(app) / "Documents");
  phone.openMenu();
  phone.tap("Open in Filza [Data]");
  EXPECT_EQ(phone.urls()[0].url, "filza:/" + phone.device().application(app)->data.string() + "/Documents");
}

TEST_P(FileManager, NotInstalledTheRequestFails) {
  phone.install({});
  phone.removeFileManager();
  phone.touch(app);
  phone.perform("openInFilzaData");
  EXPECT_FALSE(phone.urls()[0].opened);
}

TEST_P(FileManager, ShowsNoAlertAndChangesNothing) {
  phone.install({});
  phone.screen();  // starting up makes a file of its own
  const auto before = test::filesBelow(phone.device().root() / "var");
  for (const auto* entry : {"Open in Filza [App]", "Open in Filza [Data]"}) {
    phone.openMenu();
    phone.tap(entry);
    EXPECT_TRUE(phone.screen().windows.empty());
    phone.home().advance(1);
  }
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
}

TEST_P(FileManager, IsAskedForTheFolderOfWhatIsCurrentWhenTapped) {
  phone.install({});
  phone.openMenu();
  phone.touchInSpite("com.example.notes");
  phone.tap("Open in Filza [Data]");
  EXPECT_EQ(phone.urls()[0].url,
            "filza:/" + phone.device().application("com.example.notes")->data.string() + "/Documents");
}

TEST_P(FileManager, AnUnknownApplicationHasNoBundleToOpen) {
  phone.install({});
  phone.touch(app);
  std::filesystem::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.perform("openInFilzaApp");
  phone.perform("openInFilzaData");
  EXPECT_FALSE(phone.showsAlert());
  ASSERT_EQ(phone.urls().size(), 1U) << "of the data alone";
  EXPECT_EQ(phone.urls()[0].url, "filza:/(null)/Documents");
}

TEST_P(FileManager, AnApplicationWithoutAContainerHasNoFolderToOpen) {
  phone.install({.hasContainer = false, .hasCaches = false});
  phone.touch(app);
  phone.perform("openInFilzaData");
  ASSERT_EQ(phone.urls().size(), 1U);
  EXPECT_EQ(phone.urls()[0].url, "filza:/(null)/Documents");
}

TEST_P(FileManager, ABlankInTheContainersPathOpensNothing) {
  phone.install({});
  const auto container = phone.container(app);
  std::filesystem::rename(container, container.string() + " moved");
  phone.touch(app);
  phone.rescan();
  phone.touch(app).perform("openInFilzaData");
  EXPECT_TRUE(phone.urls().empty());
}

// A text that is no address opens nothing; nothing is encoded on the way.
TEST_P(FileManager, ABlankInTheBundlePathStaysEncoded) {
  phone.install({.folder = "Te st.app"});
  const auto bundle = phone.device().application(app)->bundle.string();
  phone.touch(app);
  phone.perform("openInFilzaApp");
  std::string encoded = bundle;
  encoded.replace(encoded.find(' '), 1, "%20");
  ASSERT_EQ(phone.urls().size(), 1U);
  EXPECT_EQ(phone.urls()[0].url, "filza:/" + encoded + (isOld() ? "" : "/"));
}
