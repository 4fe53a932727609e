// Copying bundle identifiers and URL schemes.
#include "tests/support/phone.hpp"

namespace {
using Json = nlohmann::ordered_json;
const std::string app = "com.example.test";
const std::string plainText = "public.utf8-plain-text";
class Clipboard : public test::Generations {
 protected:
  void copySchemes(const Json& types) {
    phone.install({.info = {{"CFBundleURLTypes", types}}});
    phone.openMenu();
    phone.tap("Copy URL Schemes");
  }
  void expectNotFound() {
    EXPECT_EQ(phone.alert().style, "alert");
    EXPECT_EQ(phone.alert().title, "Not Found");
    EXPECT_EQ(phone.alert().message, "This application doesn't have any URL Schemes.");
    EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
    EXPECT_EQ(phone.alert().buttons[0].style, "cancel");
  }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Clipboard, test::bothGenerations, test::generationName);

TEST_P(Clipboard, TakesTheBundleIdentifierSilently) {
  phone.install({});
  phone.openMenu();
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.pasteboard()->text, app);
  EXPECT_EQ(phone.pasteboard()->type, plainText);
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Clipboard, ListsSchemesByUrlType) {
  copySchemes({{{"CFBundleURLName", "Login"}, {"CFBundleURLSchemes", {"abc", "abd"}}},
               {{"CFBundleURLSchemes", {"xyz"}}},
               {{"CFBundleURLName", "Left out"}},
               {{"CFBundleURLName", "Empty"}, {"CFBundleURLSchemes", Json::array()}}});
  EXPECT_EQ(phone.pasteboard()->text, "Login: abc:// abd:// \nUnknown Scheme: xyz:// \nEmpty: \n");
  EXPECT_EQ(phone.pasteboard()->type, plainText);
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Clipboard, WithoutUrlTypesStaysAsItWas) {
  phone.install({});
  phone.openMenu();
  phone.tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(phone.pasteboard());
  phone.tap("OK");
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Clipboard, WithoutAnySchemeIsEmptied) {
  copySchemes({{{"CFBundleURLName", "Login"}}});
  expectNotFound();
  EXPECT_EQ(phone.pasteboard()->text, "");
}

TEST_P(Clipboard, UrlTypesOfAnotherKindBringNothingDown) {
  for (const Json& types : {Json("text"), Json(5), Json::array({1, "two"}), Json{{"a", 1}},
                            Json::array({{{"CFBundleURLSchemes", "text"}}})}) {
    phone.openMenu("com.example.notes");
    phone.tap("Copy BundleID").advance(1);
    copySchemes(types);
    expectNotFound();
    // The key is there, so what another application left goes.
    EXPECT_EQ(phone.pasteboard()->text, "");
    phone.tap("OK");
    phone.advance(1);
  }
}

TEST_P(Clipboard, UrlTypesOfAnotherKindAreLeftOut) {
  copySchemes(Json::array({1, "two", {{"CFBundleURLSchemes", {"abc"}}}}));
  EXPECT_EQ(phone.pasteboard()->text, "Unknown Scheme: abc:// \n");
}

TEST_P(Clipboard, StaysAsItWasWithoutAnApplication) {
  phone.openMenu("com.example.notes");
  phone.tap("Copy BundleID").advance(1);
  phone.openMenu("com.example.weather");
  phone.touchInSpite("Garden Diary");
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.pasteboard()->text, "com.example.notes");
}

TEST_P(Clipboard, SchemesOfAnotherKindAreLeftOut) {
  copySchemes({{{"CFBundleURLName", 7}, {"CFBundleURLSchemes", {1, "ok", {{"a", 1}}}}}});
  EXPECT_EQ(phone.pasteboard()->text, "Unknown Scheme: ok:// \n");
}

TEST_P(Clipboard, TakesWhatIsCurrentWhenTapped) {
  phone.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"mine"}}}}}}});
  phone.openMenu();
  phone.touchInSpite("com.example.notes");
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.pasteboard()->text, "com.example.notes");
  phone.advance(1);
  phone.openMenu("com.example.notes");
  phone.touchInSpite(app);
  phone.tap("Copy URL Schemes");
  EXPECT_EQ(phone.pasteboard()->text, "Unknown Scheme: mine:// \n");
}

TEST_P(Clipboard, ANewCopyReplacesTheOldOne) {
  copySchemes({{{"CFBundleURLSchemes", {"abc"}}}});
  phone.advance(1);
  phone.openMenu();
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.pasteboard()->text, app);
}

TEST_P(Clipboard, AnUnreadablePropertyListIsNotFound) {
  phone.install({});
  phone.openMenu();
  sim::writeFile(phone.bundle(app) / "Info.plist", "nonsense");
  phone.tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(phone.pasteboard());
}

TEST_P(Clipboard, AnApplicationThatWentIsNotFound) {
  phone.install({});
  phone.openMenu();
  std::filesystem::remove_all(phone.bundle(app).parent_path());
  phone.rescan();
  phone.tap("Copy URL Schemes");
  expectNotFound();
  EXPECT_FALSE(phone.pasteboard());
}

// The path is taken as the location spells it.
TEST_P(Clipboard, ABlankInTheBundlePathHidesTheSchemes) {
  phone.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}, .folder = "Te st.app"});
  phone.openMenu();
  phone.tap("Copy URL Schemes");
  expectNotFound();
}

TEST_P(Clipboard, NeitherCopyChangesAFile) {
  phone.install({.info = {{"CFBundleURLTypes", {{{"CFBundleURLSchemes", {"abc"}}}}}}});
  phone.screen();  // starting up makes a file of its own
  const auto before = test::filesBelow(phone.device().root() / "var");
  for (const auto* entry : {"Copy BundleID", "Copy URL Schemes"}) {
    phone.openMenu();
    phone.tap(entry);
    phone.advance(1);
  }
  EXPECT_EQ(test::filesBelow(phone.device().root() / "var"), before);
}
