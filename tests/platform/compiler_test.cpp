// What the compiler refuses, so that nobody has to look for it.
#include <gtest/gtest.h>

#include "simulator/device/files.hpp"
#include "tests/support/command.hpp"
#include "tests/support/places.hpp"

namespace {

/// What the compiler says of a source file that includes the platform; empty when it takes it.
class Compiler : public testing::Test {
 protected:
  std::string saysOf(const std::string& source) {
    const auto file = folder_.path() / "source.cpp";
    const auto log = folder_.path() / "log";
    sim::writeFile(file, source);
    linesOf("clang++-16 -std=c++20 -ffreestanding -fno-exceptions -fno-rtti -fsyntax-only -Wall -Wextra -Werror -I " +
            std::string(test::sourceFolder) + " " + file.string() + " >" + log.string() + " 2>&1 || true");
    return sim::readFile(log).value_or("no log");
  }
  std::string saysOfStatement(const std::string& statement) {
    return saysOf("#include \"platform/UIKit.hpp\"\nRef<NSString> made();\nvoid test(NSString* text) {\n  " +
                  statement + "\n  (void)text;\n}\n");
  }
  void expectRefusal(const std::string& said, const std::string& reason) {
    EXPECT_NE(said.find("error:"), std::string::npos) << said;
    EXPECT_NE(said.find(reason), std::string::npos) << said;
  }

 private:
  sim::TemporaryFolder folder_;
};

}  // namespace

TEST_F(Compiler, RefusesAPointerIntoAReferenceThatGoesAtOnce) {
  EXPECT_EQ(saysOfStatement("Ref<NSString> kept = made(); text = kept;"), "");
  EXPECT_EQ(saysOfStatement("const NSUInteger length = made()->length(); (void)length;"), "");
  expectRefusal(saysOfStatement("NSString* dangling = made(); (void)dangling;"), "dangling");
  expectRefusal(saysOfStatement("NSString* dangling = made().get(); (void)dangling;"), "dangling");
}

TEST_F(Compiler, RefusesAnAdoptedObjectThatNobodyKeeps) {
  EXPECT_EQ(saysOfStatement("const auto reference = Ref<NSString>::adopt(text);"), "");
  expectRefusal(saysOfStatement("Ref<NSString>::adopt(text);"), "nodiscard");
}

TEST_F(Compiler, TakesBlocksOfAnyResult) {
  EXPECT_EQ(saysOfStatement("const auto* twice = makeBlock<int(int)>([](int each) { return 2 * each; }); "
                            "static_assert(__is_same(decltype(block::call<int>(twice, 2)), int));"),
            "");
  expectRefusal(saysOfStatement("const auto* none = makeBlock<int()>([] {}); (void)none;"), "void");
}

TEST_F(Compiler, RefusesARowWhoseSlotIsOfAnotherMethodsType) {
  std::string table = *sim::readFile(test::sourceFile("loader/hook_table.cpp"));
  const std::string right = "hook<menu::isDownloadingIcon, &menu::platformIsDownloadingIcon>";
  const auto place = table.find(right);
  ASSERT_NE(place, std::string::npos);
  table.replace(place, right.size(), "hook<menu::isDownloadingIcon, &menu::platformUninstalledByUser>");
  expectRefusal(saysOf(table), "no matching function");
}

TEST_F(Compiler, RefusesARowWhoseSelectorDoesNotMatchItsFunction) {
  const std::string table = *sim::readFile(test::sourceFile("loader/hook_table.cpp"));
  ASSERT_EQ(saysOf(table), "");
  for (const auto& [right, wrong] : {std::pair<std::string, std::string>{"\"layoutSubviews\"", "\"layoutSubviews:\""},
                                     {"\"icon:touchMoved:\"", "\"icon:touchMoved\""},
                                     {"\"showAlertView\"", "\"showAlertView:\""},
                                     {"\"launchMuteMenu:\"", "\"launchMuteMenu\""}}) {
    std::string changed = table;
    const auto place = changed.find(right);
    ASSERT_NE(place, std::string::npos) << right;
    changed.replace(place, right.size(), wrong);
    expectRefusal(saysOf(changed), "theSelectorsColonsMustMatchTheArguments");
  }
}
