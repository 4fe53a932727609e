// What a driver can do to a home screen beyond what a person can: stand between the platform's methods and their
// callers, catch what they raise, finish a tap late, and pass on what no caller should.
#include "tests/support/home.hpp"

namespace {

using Json = nlohmann::json;

const std::string app = "com.example.test";
const std::string sound = "SBNCSoundController playSoundForNotificationRequest:";
const std::string appeared = "UIAlertController viewDidAppear:";

class Probes : public test::Generations {
 protected:
  void SetUp() override { home.install({}); }

  std::string touchMoved() const { return menuHost() + " icon:touchMoved:"; }
  std::string editing() const { return menuHost() + " isEditing"; }
  std::string initialiser() const { return isOld() ? "initWithContentType:" : "initWithConfigurationOptions:"; }
  std::string viewInitialiser() const { return "SBIconView " + initialiser(); }

  void interpose(const std::vector<std::string>& methods) { home.options().interposed = methods; }
  Json notification() const { return {{"id", app}, {"text", "hello"}, {"places", {"sound"}}}; }
  bool soundRaises() { return home->raises("notify", notification()); }
  long calls(const std::string& method) { return home->interposedCalls().at(method); }
  void makeView() { home->ask("makeIconView", {{"initialiser", initialiser()}}); }
  Json passedOn() { return home->ask("platform").at("passedOn"); }

  void refusesToBoot(const std::string& method, const std::string& reason) {
    interpose({method});
    try {
      *home;
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
  home->edit(true);
  home->ask("notify", notification());
  EXPECT_EQ(calls(sound), 1);
  const long before = calls(editing());
  EXPECT_TRUE(home.screen().editing);
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
  home->interpose(sound, {{"do", "raise"}});
  EXPECT_TRUE(soundRaises());
  EXPECT_FALSE(soundRaises());
  EXPECT_EQ(calls(sound), 2);
}

TEST_P(Probes, ACallRaisesAfterThoseThatAreSkipped) {
  interpose({sound});
  home->interpose(sound, {{"do", "raise"}, {"skip", 2}});
  EXPECT_FALSE(soundRaises());
  EXPECT_FALSE(soundRaises());
  EXPECT_TRUE(soundRaises());
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, EveryCallRaisesUntilItIsToldOff) {
  interpose({sound});
  home->interpose(sound, {{"do", "raise always"}});
  EXPECT_TRUE(soundRaises());
  EXPECT_TRUE(soundRaises());
  home->interpose(sound, {{"do", "off"}});
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, AnExceptionThatNobodyCatchesEndsTheHomeScreen) {
  interpose({sound});
  home->interpose(sound, {{"do", "raise"}});
  try {
    home->ask("notify", notification());
    ADD_FAILURE() << "goes on";
  } catch (const sim::HomeScreenDied& death) {
    EXPECT_NE(std::string(death.what()).find("InterposedException: " + sound), std::string::npos) << death.what();
  }
}

TEST_P(Probes, WhatIsCaughtLeavesNothingBehind) {
  interpose({touchMoved()});
  const Json swipe{{"id", app}, {"samples", {{0, -1}}}};
  EXPECT_FALSE(home->raises("swipe", swipe));
  const auto before = home->live();
  for (int i = 0; i < 20; ++i) {
    home->interpose(touchMoved(), {{"do", "raise"}});
    EXPECT_TRUE(home->raises("swipe", swipe));
  }
  EXPECT_EQ(home->live(), before);
  home.openMenu();
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Probes, WhatIsDueMayRaiseAndTheRestIsDoneAllTheSame) {
  interpose({appeared});
  home->interpose(appeared, {{"do", "raise"}});
  home.openMenu();
  EXPECT_TRUE(home->raises("advance", {{"seconds", 1}}));
  EXPECT_TRUE(home.showsAlert());
  home->tap("Copy BundleID");
  home->advance(1);
  EXPECT_EQ(home->pasteboard().value().text, app);
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Probes, ARequestThatCannotBeDoneIsRefusedCatchingOrNot) {
  EXPECT_THROW(home->raises("touch", {{"id", "com.example.nobody"}}), sim::BadInput);
}

TEST_P(Probes, AMethodCanGiveNothing) {
  interpose({editing()});
  home->edit(true);
  home->interpose(editing(), {{"do", "nil"}});
  EXPECT_FALSE(home.screen().editing);
  EXPECT_TRUE(home.screen().editing);
}

TEST_P(Probes, AnInitialiserThatGivesNothingLetsGoOfItsReceiver) {
  interpose({viewInitialiser()});
  makeView();
  const auto before = home->live();
  home->interpose(viewInitialiser(), {{"do", "nil"}});
  makeView();
  EXPECT_EQ(home->live(), before);
}

TEST_P(Probes, AnInitialiserCanGiveAnotherObject) {
  const std::string allocation = "+SBIconView alloc";
  interpose({viewInitialiser(), allocation});
  makeView();
  const long before = home.live("SBIconView");
  const long allocated = calls(allocation);
  home->interpose(viewInitialiser(), {{"do", "other"}});
  makeView();
  EXPECT_EQ(calls(allocation), allocated + 2);
  EXPECT_EQ(home.live("SBIconView"), before + 1);
}

TEST_P(Probes, OnlyAnInitialiserCanGiveAnotherObject) {
  interpose({sound});
  EXPECT_THROW(home->interpose(sound, {{"do", "other"}}), sim::BadInput);
  EXPECT_THROW(home->interpose("NSObject init", {{"do", "raise"}}), sim::BadInput);
}

TEST_P(Probes, SomethingElseCanHappenBeforeACall) {
  interpose({sound, editing()});
  const Json requests{{{"verb", "edit"}, {"on", true}},
                      {{"verb", "swipe"}, {"id", app}, {"samples", {{0, -20}}}},
                      {{"verb", "notify"}, {"id", app}, {"text", "within"}, {"places", {"sound"}}}};
  home->interpose(sound, {{"do", "perform"}, {"requests", requests}});
  home->ask("notify", notification());
  EXPECT_TRUE(home.screen().editing);
  EXPECT_EQ(calls(sound), 2);
}

TEST_P(Probes, WhatHappensBeforeACallMayRaise) {
  interpose({sound, touchMoved()});
  const Json swipe{{"verb", "swipe"}, {"id", app}, {"samples", {{0, -1}}}};
  home->interpose(touchMoved(), {{"do", "raise"}});
  home->interpose(sound, {{"do", "perform"}, {"requests", {swipe}}});
  EXPECT_TRUE(soundRaises());
  home->interpose(touchMoved(), {{"do", "raise"}});
  Json caught = swipe;
  caught["catching"] = true;
  home->interpose(sound, {{"do", "perform"}, {"requests", {caught}}});
  EXPECT_FALSE(soundRaises());
}

TEST_P(Probes, ArgumentsReachThePlatformAsTheyAre) {
  home.options().library = "";
  constexpr std::int64_t wide = 0x1'0000'0106;
  const std::string method = isOld() ? "setInScreenOffMode:forAutoUnlock:" : "viewWillAppear:";
  home->performWith(method, {wide, 5}, isOld() ? "SBDashBoardViewController" : "CSCoverSheetViewController");
  EXPECT_EQ(passedOn(), (Json{{{"method", method}, {"values", isOld() ? Json{6, 5} : Json{6}}}}));
}

TEST_P(Probes, AMessageTakesSixIntegersAtMost) {
  EXPECT_THROW(home->performWith("isEditing", {1, 2, 3, 4, 5, 6, 7}), sim::BadInput);
  EXPECT_THROW(home->ask("perform", {{"selector", "isEditing"}, {"arguments", {1.5}}}), sim::BadInput);
  home->performWith("isEditing", {1, 2, 3, 4, 5, 6});
}

TEST_P(Probes, BooleansMayBeAnyByte) {
  home.options().library = "";
  home->screenOff({.mode = 6, .autoUnlock = 255, .source = {}});
  home->screenOn({.mode = {}, .autoUnlock = true, .source = 3});
  home->ask("notify", {{"id", app}, {"text", "hello"}, {"modal", 7}});
  EXPECT_THROW(home->screenOff({.mode = 256, .autoUnlock = {}, .source = {}}), sim::BadInput);
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
  home.options().library = "";
  const auto item = [](const nlohmann::ordered_json& type, const nlohmann::ordered_json& title) {
    return nlohmann::ordered_json{{"UIApplicationShortcutItemType", type}, {"UIApplicationShortcutItemTitle", title}};
  };
  nlohmann::ordered_json items = {item(1, 42), item({{"a", "b"}}, {{"c", "d"}}), "no dictionary", item("fine", "Fine")};
  items.push_back(item(nlohmann::ordered_json::array({"x"}), nlohmann::ordered_json::array({"y"})));
  home.install({.id = "com.example.odd", .info = {{"UIApplicationShortcutItems", items}}, .folder = "Odd.app"});
  home->forceTouch("com.example.odd");
  const auto entries = home.screen().quickActions.value().entries;
  ASSERT_GE(entries.size(), 4U);
  EXPECT_EQ(entries[0].title, "42");
  EXPECT_NE(entries[1].title.find('c'), std::string::npos);
  EXPECT_EQ(entries[2].title, "Fine");
  EXPECT_NE(entries[3].title.find('y'), std::string::npos);
  home->choose(entries[1].title);
  EXPECT_EQ(home.screen().frontmost, "com.example.odd");
}
