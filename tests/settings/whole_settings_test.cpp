// The settings are whole at any moment, even when the power fails while a renamed label is being stored.
#include "tests/support/home.hpp"
#include "tests/support/power_cut.hpp"

namespace {

const std::string app = "com.example.test";
constexpr int cuts = 50;

class WholeSettings : public test::Generations {
 protected:
  void SetUp() override {
    home.install({});
    nlohmann::ordered_json content{{"useMute", false}};
    const std::string longLabel(20'000, 'x');
    for (int i = 0; i < 20; ++i) content["com.example.application" + std::to_string(i)] = longLabel;
    sim::PropertyList(content).write(file());
    first = storedAs("First");
    second = storedAs("Second");
    ASSERT_NE(first, second);
    const auto stored = sim::PropertyList::read(file());
    ASSERT_TRUE(stored);
    ASSERT_EQ(stored->text(app), "Second");
    ASSERT_EQ(stored->text("com.example.application19"), longLabel);
    home->shutDown();
  }

  std::filesystem::path file() const { return home.path(std::string(sim::Device::settingsFile)); }
  std::string bytes() const { return sim::readFile(file()).value_or("no file"); }
  static void typeLabel(sim::HomeScreen& phone, const std::string& label) {
    phone.swipeUp(app).tap("Rename App").advance(1).type(label);
  }
  std::string storedAs(const std::string& label) {
    typeLabel(*home, label);
    duration = test::timeOf([&] { home->tap("Apply"); });
    return bytes();
  }

  /// Boots on what the last cut left, asks for the other label and cuts.
  template <class Cut>
  void cutAgainAndAgain(Cut cut) {
    for (int i = 0; i < cuts; ++i) {
      sim::HomeScreen phone(home.options());
      typeLabel(phone, bytes() == first ? "Second" : "First");
      cut(phone);
      const std::string left = bytes();
      ASSERT_TRUE(left == first || left == second) << "cut " << i << " left " << left.size() << " bytes";
    }
  }

  std::string first, second;
  std::chrono::microseconds duration{};
  test::PowerCut power{file()};
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, WholeSettings, test::bothGenerations, test::generationName);

TEST_P(WholeSettings, WhenThePowerFailsAtAnyMomentOfARename) {
  cutAgainAndAgain([&](sim::HomeScreen& phone) { power.duringChange(phone, "tap", {{"title", "Apply"}}, duration); });
}

TEST_P(WholeSettings, WhenThePowerFailsWhileTheFileIsWritten) {
  cutAgainAndAgain([&](sim::HomeScreen& phone) { ASSERT_TRUE(power.duringWrite(phone, "tap", {{"title", "Apply"}})); });
}
