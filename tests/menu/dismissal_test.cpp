// The menu leaves the screen when the device locks, the screen goes off or the power-down slider comes up.
#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"

namespace {
using Json = nlohmann::json;
class Dismissal : public test::Generations {
 protected:
  void SetUp() override { phone.openMenu("com.example.notes"); }
  void expectGone() {
    EXPECT_TRUE(phone.screen().windows.empty());
    EXPECT_EQ(phone.live("UIWindow"), 0);
  }
};
class DismissalOld : public test::OldGeneration {};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Dismissal, test::bothGenerations, test::generationName);

TEST_P(Dismissal, LockingTakesTheMenuAway) {
  phone.lock();
  expectGone();
}

TEST_P(Dismissal, UnlockingDoesNotBringItBack) {
  phone.lock();
  phone.unlock();
  expectGone();
}

TEST_P(Dismissal, ThePowerDownSliderTakesTheMenuAway) {
  phone.powerDown();
  expectGone();
  EXPECT_TRUE(phone.screen().poweringDown);
}

TEST_P(Dismissal, HappensWhateverTheSettings) {
  phone.settings({"enabled=false"});
  phone.lock();
  expectGone();
}

TEST_P(Dismissal, DoesNotOpenTheWayForASecondMenu) {
  phone.advance(0.3);
  phone.lock();
  phone.unlock();
  phone.openMenu("com.example.notes");
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(0.8);
  phone.openMenu("com.example.notes");
  EXPECT_FALSE(phone.showsAlert());
  phone.advance(0.2);
  phone.openMenu("com.example.notes");
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Dismissal, WithoutAMenuOnlyThePlatformIsCalled) {
  phone.tap("Cancel");
  phone.logMessages(true);
  const auto before = phone.calls().size();
  phone.lock();
  phone.unlock();
  phone.powerDown();
  EXPECT_EQ(phone.calls().size(), before);
  EXPECT_TRUE(phone.screen().poweringDown);
}

/// What is only handed on arrives as it came, whatever the compiler makes of it: in the library that is used, and in
/// one that is not optimised.
class HandingOn : public test::Generations {
 protected:
  void expectHandedOn() {
    const auto handedOn = [&](const std::string& target, const std::string& selector, const Json& values) {
      SCOPED_TRACE(selector);
      phone.ask("perform", {{"target", target}, {"selector", selector}, {"arguments", values}});
      const auto all = phone.ask("platform").at("passedOn");
      ASSERT_FALSE(all.empty());
      EXPECT_EQ(all.back(), (Json{{"method", selector}, {"values", values}}));
    };
    // Answers, as the platform gives them.
    const std::string shouldActivate =
        isOld() ? "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:"
                : "iconView:shouldActivateApplicationShortcutItem:atIndex:";
    const std::string answering[] = {menuHost() + " " + shouldActivate, "SBDownloadingIcon isDownloadingIcon"};
    phone.options().interposed = {answering[0], answering[1]};
    phone.interpose(answering[0], {{"do", "value"}, {"value", 6}});
    EXPECT_EQ(phone.ask("perform", {{"selector", shouldActivate}, {"result", true}}), 6);
    phone.startDownload("com.example.coming");
    phone.interpose(answering[1], {{"do", "value"}, {"value", 6}});
    EXPECT_EQ(phone.ask("download", {{"what", "ask"}, {"id", "com.example.coming"}}), 6);

    if (isOld()) {
      handedOn("SBDashBoardViewController", "setInScreenOffMode:forAutoUnlock:", {6, 5});
      handedOn("SBDashBoardViewController", "setInScreenOffMode:forAutoUnlock:fromUnlockSource:", {6, 5, 123456789012});
      phone.ask("notify", {{"id", "com.example.notes"}, {"text", "hello"}, {"places", {"banner"}}, {"modal", 6}});
      EXPECT_EQ(phone.ask("platform").at("passedOn").back().at("values"), Json{6});
    } else {
      handedOn("CSCoverSheetViewController", "viewWillAppear:", {6});
    }
  }
};
INSTANTIATE_TEST_SUITE_P(, HandingOn, test::bothGenerations, test::generationName);

TEST_P(HandingOn, IsExact) { expectHandedOn(); }
TEST_P(HandingOn, IsExactWithoutTheOptimiser) {
  phone.useAddOn(std::string(test::buildFolder) + "/Sprigdial-unoptimised.so");
  expectHandedOn();
}

TEST_P(Dismissal, ComesAfterThePlatformHasHadItsTurn) {
  const std::string method = GetParam() == sim::Generation::old
                                 ? "SBDashBoardViewController setInScreenOffMode:forAutoUnlock:"
                                 : "CSCoverSheetViewController viewWillAppear:";
  test::Phone another(GetParam(), {.interposed = {method}});
  another.openMenu("com.example.notes");
  another.interpose(method, {{"do", "raise"}});
  EXPECT_TRUE(another.raises("screen-off"));
  EXPECT_TRUE(another.showsAlert());
}

TEST_F(DismissalOld, AnyWayOfTurningTheScreenOffWillDo) {
  for (const bool off : {true, false})
    for (const bool autoUnlock : {true, false})
      for (const std::optional<int> source : {std::optional<int>{}, std::optional<int>{0}, std::optional<int>{7}}) {
        phone.openMenu("com.example.notes");
        ASSERT_TRUE(phone.showsAlert());
        phone.screenOff({off, autoUnlock, source});
        EXPECT_FALSE(phone.showsAlert());
        phone.unlock();
        phone.advance(2);
      }
}
