// What a driver can do to a home screen beyond what a person can: stand between the platform's methods and their
// callers, catch what they raise, finish a tap late, and pass on what no caller should.
#include "tests/support/phone.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string sound = "SBNCSoundController playSoundForNotificationRequest:";
const std::string appeared = "UIAlertController viewDidAppear:";

class Probes : public test::Generations {
 protected:
  void SetUp() override { phone.install({}); }

  std::string touchMoved() const { return menuHost() + " icon:touchMoved:"; }
  std::string editing() const { return menuHost() + " isEditing"; }
  std::string initialiser() const { return isOld() ? "initWithContentType:" : "initWithConfigurationOptions:"; }
  std::string viewInitialiser() const { return "SBIconView " + initialiser(); }

  void interpose(const std::vector<std::string>& methods) { phone.options().interposed = methods; }
  Json notification() const { return {{"id", app}, {"text", "hello"}, {"places", {"sound"}}}; }
  bool soundRaises() { return phone.raises("notify", notification()); }
  long calls(const std::string& method) { return phone.interposedCalls().at(method); }
  void makeView() { phone.ask("make-icon-view", {{"initialiser", initialiser()}}); }
  Json passedOn() { return phone.ask("platform").at("passedOn"); }

  void refusesToBoot(const std::string& method, const std::string& reason) {
    interpose({method});
    try {
      phone.boot();
      ADD_FAILURE() << "boots";
    } catch (const sim::HomeScreenDied& death) {
      const std::string output = death.what();
      EXPECT_NE(output.find("SpringBoard: cannot interpose \"" + method + "\": " + reason), std::string::npos)
          << output;
    }
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Probes, test::bothGenerations, test::generationName);

TEST_P(Probes, AnInterposedMethodRunsAndItsCallsAreCounted) {
  const std::string ofClass = "+SBIconController sharedInstance";
  interpose({sound, ofClass, editing()});
  phone.edit(true);
  phone.ask("notify", notification());
  EXPECT_EQ(calls(sound), 1);
  const long before = calls(editing());
  EXPECT_TRUE(phone.screen().editing);
  EXPECT_GT(calls(editing()), before);
  EXPECT_GT(calls(ofClass), 0);
}

TEST_P(Probes, NoHomeScreenBootsWithAMissingClassInterposed) {
  refusesToBoot("NoClass init", "there is no such class");
}

TEST_P(Probes, NoHomeScreenBootsWithAMissingMethodInterposed) {
  refusesToBoot("+SBIconView noMethod:", "there is no such method");
}

TEST_P(Probes, NoHomeScreenBootsWithAMethodInterposedWhoseResultIsAStruct) {
  refusesToBoot("UIView frame", "its result is a struct");
}

TEST_P(Probes, OneCallRaisesAndIsCaught) {
  interpose({sound});
  phone.interpose(sound, {{"do", "raise"}});
  EXPECT_TRUE(soundRaises());
  EXPECT_FALSE(soundRaises());
  EXPECT_EQ(calls(sound), 2);
}

TEST_P(Probes, ACallRaisesAfterThoseThatAreSkipped) {
  interpose({sound});
  phone.interpose(sound, {{"do", "raise"}, {"skip", 2}});
  EXPECT_FALSE(soundRaises());
  EXPECT_FALSE(soundRaises());
  EXPECT_TRUE(soundRaises());
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, EveryCallRaisesUntilItIsToldOff) {
  interpose({sound});
  phone.interpose(sound, {{"do", "raise always"}});
  EXPECT_TRUE(soundRaises());
  EXPECT_TRUE(soundRaises());
  phone.interpose(sound, {{"do", "off"}});
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, AnExceptionThatNobodyCatchesEndsTheHomeScreen) {
  interpose({sound});
  phone.interpose(sound, {{"do", "raise"}});
  try {
    phone.ask("notify", notification());
    ADD_FAILURE() << "goes on";
  } catch (const sim::HomeScreenDied& death) {
    EXPECT_NE(std::string(death.what()).find("InterposedException: " + sound), std::string::npos) << death.what();
  }
}

TEST_P(Probes, WhatIsCaughtLeavesNothingBehind) {
  interpose({touchMoved()});
  const Json swipe{{"direction", "up"}, {"id", app}, {"samples", {0, -1}}};
  EXPECT_FALSE(phone.raises("swipe", swipe));
  const auto before = phone.live();
  for (int i = 0; i < 20; ++i) {
    phone.interpose(touchMoved(), {{"do", "raise"}});
    EXPECT_TRUE(phone.raises("swipe", swipe));
  }
  EXPECT_EQ(phone.live(), before);
  phone.openMenu();
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Probes, WhatIsDueMayRaiseAndTheRestIsDoneAllTheSame) {
  interpose({appeared});
  phone.interpose(appeared, {{"do", "raise"}});
  phone.openMenu();
  EXPECT_TRUE(phone.raises("advance", {{"seconds", 1}}));
  EXPECT_TRUE(phone.showsAlert());
  phone.tap("Copy BundleID");
  phone.advance(1);
  EXPECT_EQ(phone.pasteboard().value().text, app);
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Probes, ARequestThatCannotBeDoneIsRefusedCatchingOrNot) {
  EXPECT_THROW(phone.raises("touch", {{"id", "com.example.nobody"}}), sim::BadInput);
}

TEST_P(Probes, AMethodCanGiveNothing) {
  interpose({editing()});
  phone.edit(true);
  phone.interpose(editing(), {{"do", "nil"}});
  EXPECT_FALSE(phone.screen().editing);
  EXPECT_TRUE(phone.screen().editing);
}

TEST_P(Probes, AnInitialiserThatGivesNothingLetsGoOfItsReceiver) {
  interpose({viewInitialiser()});
  makeView();
  const auto before = phone.live();
  phone.interpose(viewInitialiser(), {{"do", "nil"}});
  makeView();
  EXPECT_EQ(phone.live(), before);
}

TEST_P(Probes, AnInitialiserCanGiveAnotherObject) {
  const std::string allocation = "+SBIconView alloc";
  interpose({viewInitialiser(), allocation});
  makeView();
  const long before = phone.live("SBIconView");
  const long allocated = calls(allocation);
  phone.interpose(viewInitialiser(), {{"do", "other"}});
  makeView();
  EXPECT_EQ(calls(allocation), allocated + 2);
  EXPECT_EQ(phone.live("SBIconView"), before + 1);
}

TEST_P(Probes, OnlyAnInitialiserCanGiveAnotherObject) {
  interpose({sound});
  EXPECT_THROW(phone.interpose(sound, {{"do", "other"}}), sim::BadInput);
  EXPECT_THROW(phone.interpose("NSObject init", {{"do", "raise"}}), sim::BadInput);
}

TEST_P(Probes, SomethingElseCanHappenBeforeACall) {
  interpose({sound, editing()});
  const Json requests{{{"verb", "edit"}, {"members", {{"on", true}}}},
                      {{"verb", "swipe"}, {"members", {{"direction", "up"}, {"id", app}, {"samples", {0, -20}}}}},
                      {{"verb", "notify"}, {"members", {{"id", app}, {"text", "within"}, {"places", {"sound"}}}}}};
  phone.interpose(sound, {{"do", "perform"}, {"requests", requests}});
  phone.ask("notify", notification());
  EXPECT_TRUE(phone.screen().editing);
  EXPECT_EQ(calls(sound), 2);
}

TEST_P(Probes, WhatHappensBeforeACallMayRaise) {
  interpose({sound, touchMoved()});
  const Json swipe{{"verb", "swipe"}, {"members", {{"direction", "up"}, {"id", app}, {"samples", {0, -1}}}}};
  phone.interpose(touchMoved(), {{"do", "raise"}});
  phone.interpose(sound, {{"do", "perform"}, {"requests", {swipe}}});
  EXPECT_TRUE(soundRaises());
  phone.interpose(touchMoved(), {{"do", "raise"}});
  Json caught = swipe;
  caught["catching"] = true;
  phone.interpose(sound, {{"do", "perform"}, {"requests", {caught}}});
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, ArgumentsReachThePlatformAsTheyAre) {
  phone.removeAddOn();
  constexpr std::int64_t wide = 0x1'0000'0106;
  const std::string method = isOld() ? "setInScreenOffMode:forAutoUnlock:" : "viewWillAppear:";
  phone.performWith(method, {wide, 5}, isOld() ? "SBDashBoardViewController" : "CSCoverSheetViewController");
  EXPECT_EQ(passedOn(), (Json{{{"method", method}, {"values", isOld() ? Json{6, 5} : Json{6}}}}));
}

TEST_P(Probes, AMessageTakesSixIntegersAtMost) {
  EXPECT_THROW(phone.performWith("isEditing", {1, 2, 3, 4, 5, 6, 7}), sim::BadInput);
  EXPECT_THROW(phone.ask("perform", {{"selector", "isEditing"}, {"arguments", {1.5}}}), sim::BadInput);
  phone.performWith("isEditing", {1, 2, 3, 4, 5, 6});
}

TEST_P(Probes, BooleansMayBeAnyByte) {
  phone.removeAddOn();
  phone.screenOff({.mode = 6, .autoUnlock = 255, .source = {}});
  phone.screenOn({.mode = {}, .autoUnlock = true, .source = 3});
  phone.ask("notify", {{"id", app}, {"text", "hello"}, {"modal", 7}});
  EXPECT_THROW(phone.screenOff({.mode = 256, .autoUnlock = {}, .source = {}}), sim::BadInput);
  if (isOld()) {
    EXPECT_EQ(passedOn(),
              (Json{{{"method", "setInScreenOffMode:forAutoUnlock:"}, {"values", {6, 255}}},
                    {{"method", "setInScreenOffMode:forAutoUnlock:fromUnlockSource:"}, {"values", {0, 1, 3}}},
                    {{"method", "_postNotificationRequest:forCoalescedNotification:modal:sourceAction:completion:"},
                     {"values", {7}}}}));
  } else {
    EXPECT_EQ(passedOn(), (Json{{{"method", "viewWillAppear:"}, {"values", {0}}}}));
  }
}

TEST_P(Probes, QuickActionsMayBeWhatTheyShouldNot) {
  phone.removeAddOn();
  const auto item = [](const nlohmann::ordered_json& type, const nlohmann::ordered_json& title) {
    return nlohmann::ordered_json{{"UIApplicationShortcutItemType", type}, {"UIApplicationShortcutItemTitle", title}};
  };
  nlohmann::ordered_json items = {item(1, 42), item({{"a", "b"}}, {{"c", "d"}}), "no dictionary", item("fine", "Fine")};
  items.push_back(item(nlohmann::ordered_json::array({"x"}), nlohmann::ordered_json::array({"y"})));
  phone.install({.id = "com.example.odd", .info = {{"UIApplicationShortcutItems", items}}, .folder = "Odd.app"});
  phone.forceTouch("com.example.odd");
  const auto entries = phone.screen().quickActions.value().entries;
  ASSERT_GE(entries.size(), 4U);
  EXPECT_EQ(entries[0].title, "42");
  EXPECT_NE(entries[1].title.find('c'), std::string::npos);
  EXPECT_EQ(entries[2].title, "Fine");
  EXPECT_NE(entries[3].title.find('y'), std::string::npos);
  phone.choose(entries[1].title);
  EXPECT_EQ(phone.screen().frontmost, "com.example.odd");
}
