// The overlay that stands while something takes its time.
#include "tests/support/phone.hpp"

namespace {
const std::string app = "com.example.test";
class Overlay : public test::Generations {
 protected:
  sim::WindowOnScreen shown() {
    const auto windows = phone.screen().windows;
    if (windows.size() != 1) throw std::runtime_error("one window, and nothing else, was to be shown");
    return windows[0];
  }
};
}  // namespace
INSTANTIATE_TEST_SUITE_P(, Overlay, test::bothGenerations, test::generationName);

TEST_P(Overlay, IsADimmedWindowAtTheNormalLevel) {
  phone.perform("showLoadingView");
  const auto window = shown();
  EXPECT_EQ(window.level, 0);
  EXPECT_TRUE(window.key);
  EXPECT_EQ(window.frame, bounds());
  EXPECT_EQ(window.background, (sim::Color{0, 0, 0, 0.2}));
  EXPECT_FALSE(window.alert);
  ASSERT_EQ(window.views.size(), 1U);
}

TEST_P(Overlay, HoldsABoxALittleOffTheCentre) {
  phone.perform("showLoadingView");
  const auto box = shown().views.at(0);
  EXPECT_EQ(box.className, "UIView");
  EXPECT_EQ(box.frame, (sim::Frame{bounds().width * 0.5 - 50, bounds().height * 0.5 - 50, 120, 120}));
  EXPECT_EQ(box.background, (sim::Color{0, 0, 0, 1}));
  EXPECT_EQ(box.alpha, 0.7);
  EXPECT_EQ(box.cornerRadius, 15);
  EXPECT_FALSE(box.userInteraction);
  EXPECT_EQ(box.subviews.size(), 2U);
}

TEST_P(Overlay, AsksToWait) {
  phone.perform("showLoadingView");
  const auto label = shown().views.at(0).subviews.at(0);
  EXPECT_EQ(label.className, "UILabel");
  EXPECT_EQ(label.frame, (sim::Frame{10, 90, 90, 14}));
  EXPECT_EQ(label.text, "Please wait...");
  EXPECT_EQ(label.textColor, (sim::Color{1, 1, 1, 1}));
  EXPECT_EQ(label.background, (sim::Color{0, 0, 0, 0}));
  EXPECT_EQ(label.fontSize, 14);
  EXPECT_EQ(label.textAlignment, 1);
}

TEST_P(Overlay, Spins) {
  phone.perform("showLoadingView");
  const auto spinner = shown().views.at(0).subviews.at(1);
  EXPECT_EQ(spinner.className, "UIActivityIndicatorView");
  EXPECT_EQ(spinner.frame, (sim::Frame{20, 20, 80, 80}));
  EXPECT_EQ(spinner.spinnerStyle, 0);
  EXPECT_TRUE(spinner.spinning);
}

TEST_P(Overlay, FollowsTheScreensSize) {
  phone.options().tablet = true;
  phone.perform("showLoadingView");
  EXPECT_EQ(shown().frame, (sim::Frame{0, 0, 768, 1024}));
  EXPECT_EQ(shown().views.at(0).frame, (sim::Frame{768 * 0.5 - 50, 1024 * 0.5 - 50, 120, 120}));
}

TEST_P(Overlay, LetsGoOfAnEarlierWindowWithoutHidingIt) {
  phone.install({});
  phone.openMenu();
  phone.advance(1);
  const long before = phone.live("UIWindow");
  phone.logMessages(true);
  phone.perform("showLoadingView");
  for (const auto& call : phone.calls()) EXPECT_NE(call.selector, "setHidden:");
  EXPECT_FALSE(shown().alert);
  EXPECT_EQ(phone.live("UIWindow"), before);
}

TEST_P(Overlay, StaysUntilTheDeviceIsLocked) {
  phone.perform("showLoadingView");
  phone.advance(3600);
  shown();
  phone.lock();
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Overlay, StaysUntilThePowerDownSliderComesUp) {
  phone.perform("showLoadingView");
  phone.powerDown();
  EXPECT_TRUE(phone.screen().windows.empty());
}

TEST_P(Overlay, TakesTheResultsPlaceAwayWhenDone) {
  phone.install({});
  phone.touch(app);
  phone.perform("showLoadingView");
  for (const auto* done : {"backUpDataSucces", "restoreDataSucces", "deleteBackUpSucces"}) {
    phone.perform(done);
    EXPECT_EQ(shown().level, 1999);
    EXPECT_EQ(phone.buttons(), std::vector<std::string>{"OK"});
  }
}
