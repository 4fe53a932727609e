// Copying bundle identifiers and URL schemes.
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
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Clipboard, test::bothGenerations, test::generationName);

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
    home.openMenu("com.example.notes");
    home->tap("Copy BundleID").advance(1);
    copySchemes(types);
    expectNotFound();
    // The key is there, so what another application left goes.
    EXPECT_EQ(home->pasteboard()->text, "");
    home->tap("OK");
    home->advance(1);
  }
}

TEST_P(Clipboard, UrlTypesOfAnotherKindAreLeftOut) {
  copySchemes(Json::array({1, "two", {{"CFBundleURLSchemes", {"abc"}}}}));
  EXPECT_EQ(home->pasteboard()->text, "Unknown Scheme: abc:// \n");
}

TEST_P(Clipboard, StaysAsItWasWithoutAnApplication) {
  home.openMenu("com.example.notes");
  home->tap("Copy BundleID").advance(1);
  home.openMenu("com.example.weather");
  home.touchInSpite("Garden Diary");
  home->tap("Copy BundleID");
  EXPECT_EQ(home->pasteboard()->text, "com.example.notes");
}

TEST_P(Clipboard, SchemesOfAnotherKindAreLeftOut) {
  copySchemes({{{"CFBundleURLName", 7}, {"CFBundleURLSchemes", {1, "ok", {{"a", 1}}}}}});
  EXPECT_EQ(home->pasteboard()->text, "Unknown Scheme: ok:// \n");
}

TEST_P(Clipboard, TakesWhatIsCurrentWhenTapped) {
  home.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"mine"}}}}}}});
  home.openMenu();
  home.touchInSpite("com.example.notes");
  home->tap("Copy BundleID");
  EXPECT_EQ(home->pasteboard()->text, "com.example.notes");
  home->advance(1);
  home.openMenu("com.example.notes");
  home.touchInSpite(app);
  home->tap("Copy URL Schemes");
  EXPECT_EQ(home->pasteboard()->text, "Unknown Scheme: mine:// \n");
}

TEST_P(Clipboard, ANewCopyReplacesTheOldOne) {
  copySchemes({{{"CFBundleURLSchemes", {"abc"}}}});
  home->advance(1);
  home.openMenu();
  home->tap("Copy BundleID");
  EXPECT_EQ(home->pasteboard()->text, app);
}

TEST_P(Clipboard, AnUnreadablePropertyListIsNotFound) {
  home.install({});
  home.openMenu();
  sim::writeFile(home.bundle(app) / "Info.plist", "nonsense");
  home->tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(home->pasteboard());
}

TEST_P(Clipboard, AnApplicationThatWentIsNotFound) {
  home.install({});
  home.openMenu();
  std::filesystem::remove_all(home.bundle(app).parent_path());
  home->rescan();
  home->tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(home->pasteboard());
}

// The path is taken as the location spells it.
TEST_P(Clipboard, ABlankInTheBundlePathHidesTheSchemes) {
  home.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}, .folder = "Te st.app"});
  home.openMenu();
  home->tap("Copy URL Schemes");
  expectNotFound();
}

TEST_P(Clipboard, NeitherCopyChangesAFile) {
  home.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}});
  home.screen();  // starting up makes a file of its own
  const auto before = test::filesBelow(home.device().root() / "var");
  for (const auto* entry : {"Copy BundleID", "Copy URL Schemes"}) {
    home.openMenu();
    home->tap(entry);
    home->advance(1);
  }
  EXPECT_EQ(test::filesBelow(home.device().root() / "var"), before);
}
