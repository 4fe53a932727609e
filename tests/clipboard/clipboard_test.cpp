// Copying bundle identifiers and URL schemes; opening folders in the file manager; opening the application.
#include "tests/support/home.hpp"

namespace {
using Json = nlohmann::ordered_json;
const std::string app = "com.example.test";
const std::string plainText = "public.utf8-plain-text";
class Clipboard : public test::Generations {
 protected:
  void copySchemes(const Json& types) {
    home.install({.info = {{"CFBundleURLTypes", types}}});
    home.openMenu();
    home->tap("Copy URL Schemes");
  }
  void expectNotFound() {
    EXPECT_EQ(home.alert().style, "alert");
    EXPECT_EQ(home.alert().title, "Not Found");
    EXPECT_EQ(home.alert().message, "This application doesn't have any URL Schemes.");
    EXPECT_EQ(home.buttons(), std::vector<std::string>{"OK"});
    EXPECT_EQ(home.alert().buttons[0].style, "cancel");
  }
};
class FileManager : public test::Generations {};
class OpenApp : public test::Generations {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Clipboard, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, FileManager, test::bothGenerations, test::generationName);
INSTANTIATE_TEST_SUITE_P(, OpenApp, test::bothGenerations, test::generationName);

TEST_P(Clipboard, TakesTheBundleIdentifierSilently) {
  home.install({});
  home.openMenu();
  home->tap("Copy BundleID");
  EXPECT_EQ(home->pasteboard()->text, app);
  EXPECT_EQ(home->pasteboard()->type, plainText);
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Clipboard, ListsSchemesByUrlType) {
  copySchemes({{{"CFBundleURLName", "Login"}, {"CFBundleURLSchemes", {"abc", "abd"}}},
               {{"CFBundleURLSchemes", {"xyz"}}},
               {{"CFBundleURLName", "Left out"}},
               {{"CFBundleURLName", "Empty"}, {"CFBundleURLSchemes", Json::array()}}});
  EXPECT_EQ(home->pasteboard()->text, "Login: abc:// abd:// \nUnknown Scheme: xyz:// \nEmpty: \n");
  EXPECT_EQ(home->pasteboard()->type, plainText);
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Clipboard, WithoutUrlTypesStaysAsItWas) {
  home.install({});
  home.openMenu();
  home->tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(home->pasteboard());
  home->tap("OK");
  EXPECT_TRUE(home.screen().windows.empty());
}

TEST_P(Clipboard, WithoutAnySchemeIsEmptied) {
  copySchemes({{{"CFBundleURLName", "Login"}}});
  expectNotFound();
  EXPECT_EQ(home->pasteboard()->text, "");
}

TEST_P(Clipboard, UrlTypesOfAnotherKindBringNothingDown) {
  for (const Json& types : {Json("text"), Json(5), Json::array({1, "two"}), Json{{"a", 1}},
                            Json::array({{{"CFBundleURLSchemes", "text"}}})}) {
    copySchemes(types);
    expectNotFound();
    home->tap("OK");
    home->advance(1);
  }
}

TEST_P(Clipboard, SchemesOfAnotherKindAreLeftOut) {
  copySchemes({{{"CFBundleURLName", 7}, {"CFBundleURLSchemes", {1, "ok", {{"a", 1}}}}}});
  EXPECT_EQ(home->pasteboard()->text, "Unknown Scheme: ok:// \n");
}

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

TEST_P(OpenApp, LaunchesWithNothingBeforeTheFirstLaunch) {
  home.install({});
  home.openMenu();
  home->tap("Open App");
  EXPECT_EQ(home.screen().frontmost, app);
  const auto launches = home->launches();
  ASSERT_EQ(launches.size(), 1U);
  EXPECT_EQ(launches[0].id, app);
  EXPECT_EQ(launches[0].location, "0");
  EXPECT_FALSE(launches[0].context);
  EXPECT_FALSE(launches[0].settings);
  EXPECT_FALSE(launches[0].actions);
}

TEST_P(OpenApp, LaunchesAsTheLastIconWasLaunched) {
  home.install({});
  home->launch("com.example.notes");
  home->home();
  home.openMenu();
  home->tap("Open App");
  const auto launches = home->launches();
  ASSERT_EQ(launches.size(), 2U);
  EXPECT_EQ(launches[1].id, app);
  EXPECT_TRUE(launches[1].context);
  EXPECT_EQ(launches[1].context, launches[0].context);
  EXPECT_EQ(launches[1].settings, launches[0].settings);
  EXPECT_EQ(launches[1].actions, launches[0].actions);
}

TEST_P(OpenApp, WithoutACurrentApplicationDoesNothing) {
  home->perform("openApps");
  EXPECT_TRUE(home->launches().empty());
}
