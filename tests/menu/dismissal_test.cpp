// The menu leaves the screen when the device locks, the screen goes off or the power-down slider comes up.
#include "tests/support/home.hpp"

namespace {
using Json = nlohmann::json;
class Dismissal : public test::Generations {
 protected:
  void SetUp() override { home.openMenu("com.example.notes"); }
  void expectGone() {
    EXPECT_TRUE(home.screen().windows.empty());
    EXPECT_EQ(home.live("UIWindow"), windowsOfThePlatform);
  }
  // The home screen's own.
  static constexpr int windowsOfThePlatform = 1;
};
class DismissalOld : public test::OldGeneration {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Dismissal, test::bothGenerations, test::generationName);

TEST_P(Dismissal, LockingTakesTheMenuAway) {
  home->lock();
  expectGone();
}

TEST_P(Dismissal, UnlockingDoesNotBringItBack) {
  home->lock();
  home->unlock();
  expectGone();
}

TEST_P(Dismissal, ThePowerDownSliderTakesTheMenuAway) {
  home->powerDown();
  expectGone();
  EXPECT_TRUE(home.screen().poweringDown);
}

TEST_P(Dismissal, HappensWhateverTheSettings) {
  home.settings({"enabled=false"});
  home->lock();
  expectGone();
}

TEST_P(Dismissal, DoesNotOpenTheWayForASecondMenu) {
  home->advance(0.3);
  home->lock();
  home->unlock();
  home.openMenu("com.example.notes");
  EXPECT_FALSE(home.showsAlert());
  home->advance(0.8);
  home.openMenu("com.example.notes");
  EXPECT_FALSE(home.showsAlert());
  home->advance(0.2);
  home.openMenu("com.example.notes");
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Dismissal, WithoutAMenuOnlyThePlatformIsCalled) {
  home->tap("Cancel");
  home->logMessages(true);
  const auto before = home->calls().size();
  home->lock();
  home->unlock();
  home->powerDown();
  EXPECT_EQ(home->calls().size(), before);
  EXPECT_TRUE(home.screen().poweringDown);
}

/// What is only handed on arrives as it came, whatever the compiler makes of it: in the library that is used, and in
/// one that is not optimised.
class HandingOn : public test::Generations {
 protected:
  void expectHandedOn(const std::string& library) {
    home.options().library = library;
    const auto handedOn = [&](const std::string& target, const std::string& selector, const Json& values) {
      SCOPED_TRACE(selector);
      home->ask("perform", {{"target", target}, {"selector", selector}, {"arguments", values}});
      const auto all = home->ask("platform").at("passedOn");
      ASSERT_FALSE(all.empty());
      EXPECT_EQ(all.back(), (Json{{"method", selector}, {"values", values}}));
    };
    // Answers, as the platform gives them.
    const std::string shouldActivate =
        isOld() ? "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:"
                : "iconView:shouldActivateApplicationShortcutItem:atIndex:";
    const std::string answering[] = {menuHost() + " " + shouldActivate, "SBDownloadingIcon isDownloadingIcon"};
    home.options().interposed = {answering[0], answering[1]};
    home->interpose(answering[0], {{"do", "value"}, {"value", 6}});
    EXPECT_EQ(home->ask("perform", {{"selector", shouldActivate}, {"result", true}}), 6);
    home->startDownload("com.example.coming");
    home->interpose(answering[1], {{"do", "value"}, {"value", 6}});
    EXPECT_EQ(home->ask("download", {{"what", "ask"}, {"id", "com.example.coming"}}), 6);

    if (isOld()) {
      handedOn("SBDashBoardViewController", "setInScreenOffMode:forAutoUnlock:", {6, 5});
      handedOn("SBDashBoardViewController", "setInScreenOffMode:forAutoUnlock:fromUnlockSource:", {6, 5, 123456789012});
      home->ask("notify", {{"id", "com.example.notes"}, {"text", "hello"}, {"places", {"banner"}}, {"modal", 6}});
      EXPECT_EQ(home->ask("platform").at("passedOn").back().at("values"), Json{6});
    } else {
      handedOn("CSCoverSheetViewController", "viewWillAppear:", {6});
    }
  }
};
INSTANTIATE_TEST_SUITE_P(, HandingOn, test::bothGenerations, test::generationName);

TEST_P(HandingOn, IsExact) { expectHandedOn("/run/simulator/Sprigdial.so"); }
TEST_P(HandingOn, IsExactWithoutTheOptimiser) { expectHandedOn("/run/simulator/Sprigdial-unoptimised.so"); }

TEST_P(Dismissal, ComesAfterThePlatformHasHadItsTurn) {
  const std::string method = GetParam() == sim::Generation::old
                                 ? "SBDashBoardViewController setInScreenOffMode:forAutoUnlock:"
                                 : "CSCoverSheetViewController viewWillAppear:";
  test::Home phone(GetParam(), {.interposed = {method}});
  phone.openMenu("com.example.notes");
  phone->interpose(method, {{"do", "raise"}});
  EXPECT_TRUE(phone->raises("screenOff"));
  EXPECT_TRUE(phone.showsAlert());
}

TEST_F(DismissalOld, AnyWayOfTurningTheScreenOffWillDo) {
  for (const bool off : {true, false})
    for (const bool autoUnlock : {true, false})
      for (const std::optional<int> source : {std::optional<int>{}, std::optional<int>{0}, std::optional<int>{7}}) {
        home.openMenu("com.example.notes");
        ASSERT_TRUE(home.showsAlert());
        home->screenOff({off, autoUnlock, source});
        EXPECT_FALSE(home.showsAlert());
        home->unlock();
        home->advance(2);
      }
}
