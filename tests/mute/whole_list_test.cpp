// The list is whole at any moment, even when the power fails while it is being written.
#include "tests/mute/muting.hpp"
#include "tests/support/power_cut.hpp"

namespace {

using test::app;
using test::Json;
using test::record;

class WholeMuteList : public test::Muting {
 protected:
  void SetUp() override {
    Muting::SetUp();
    Json many = Json::array();
    for (int i = 0; i < 3000; ++i) many.push_back(record("com.example.application" + std::to_string(i), later + i));
    store(many);
    openSheet();
    duration = test::timeOf([&] { choose("Forever"); });
    with = list();
    many.push_back(test::forever(app));
    ASSERT_EQ(with, test::listOf(many));
    with = bytes();
    mute("Unmute");
    without = bytes();
    ASSERT_NE(with, without);
    phone.shutDown();
  }

  /// Boots on what the last cut left, asks for the other list and cuts.
  template <class Cut>
  void cutAgainAndAgain(Cut cut) {
    for (int i = 0; i < test::PowerCut::cuts; ++i) {
      sim::Phone another(phone.options());
      another.touch(app).perform("muteNotifications");
      cut(another, bytes() == with ? "Unmute" : "Forever");
      const std::string left = bytes();
      ASSERT_TRUE(left == with || left == without) << "cut " << i << " left " << left.size() << " bytes";
    }
  }

  std::string with, without;
  std::chrono::microseconds duration{};
  test::PowerCut power{file()};
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, WholeMuteList, test::bothGenerations, test::generationName);

TEST_P(WholeMuteList, WhenThePowerFailsAtAnyMomentOfAChoice) {
  cutAgainAndAgain([&](sim::Phone& another, const std::string& title) {
    power.duringChange(another, "tap", {{"title", title}}, duration);
  });
}

TEST_P(WholeMuteList, WhenThePowerFailsWhileTheFileIsWritten) {
  cutAgainAndAgain([&](sim::Phone& another, const std::string& title) {
    ASSERT_TRUE(power.duringWrite(another, "tap", {{"title", title}}));
  });
}
