// The class `RenameIcon` as the runtime has it.
#include <algorithm>

#include "tests/support/phone.hpp"

namespace {

using Description = sim::Phone::ClassDescription;
using Names = std::vector<std::string>;

class RenameIconClass : public test::Generations {
 protected:
  Description cls() { return phone.describe("RenameIcon"); }
};

Names sorted(const std::vector<Description::Member>& members) {
  Names all;
  for (const auto& [name, type] : members) all.push_back(name + " " + type);
  std::sort(all.begin(), all.end());
  return all;
}

}  // namespace
INSTANTIATE_TEST_SUITE_P(, RenameIconClass, test::bothGenerations, test::generationName);

TEST_P(RenameIconClass, IsAPlainObjectThatFollowsATextField) {
  EXPECT_EQ(cls().superclass, "NSObject");
  EXPECT_EQ(cls().protocols, Names{"UITextFieldDelegate"});
}

TEST_P(RenameIconClass, HasItsIconItsViewAndTheNewName) {
  const auto variables = cls().instanceVariables;
  Names names;
  for (const auto& [name, type] : variables) {
    names.push_back(name);
    EXPECT_EQ(type.substr(0, 1), "@") << name;
  }
  EXPECT_EQ(names, (Names{"_icon", "_iconView", "renameTitle"}));
}

// `dealloc` is there because classes made in a running process are not destructed by `.cxx_destruct` alone. None
// of the text field's questions is answered.
TEST_P(RenameIconClass, AnswersItsOwnMessagesAndNoMore) {
  EXPECT_EQ(sorted(cls().methods), (Names{".cxx_destruct v@:", "dealloc v@:", "initWithIcon:iconView: @@:@@",
                                          "receiveTouch v@:", "save v@:", "show v@:"}));
  EXPECT_EQ(sorted(cls().classMethods), Names{"renamerWithIcon:iconView: @@:@@"});
}

TEST_P(RenameIconClass, IsTheSameBeforeAndAfterUse) {
  const auto before = sorted(cls().methods);
  phone.rename("com.example.notes", "Jotter");
  EXPECT_EQ(sorted(cls().methods), before);
  EXPECT_EQ(phone.live("RenameIcon"), 0);
}

TEST_P(RenameIconClass, ComesWithTheLibrary) {
  phone.removeAddOn();
  EXPECT_THROW(phone.describe("RenameIcon"), sim::BadInput);
}
