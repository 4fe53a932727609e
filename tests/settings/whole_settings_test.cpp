// The settings are whole at any moment, even when the power fails while a renamed label is being stored.
#include "tests/support/phone.hpp"
#include "tests/support/power_cut.hpp"

namespace {

const std::string app = "com.example.test";

class WholeSettings : public test::Generations {
 protected:
  void SetUp() override {
    phone.install({});
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
    phone.shutDown();
  }

  std::filesystem::path file() const { return phone.path(std::string(sim::Device::settingsFile)); }
  std::string bytes() const { return sim::readFile(file()).value_or("no file"); }
  static void typeLabel(sim::Phone& another, const std::string& label) {
    another.swipeUp(app).tap("Rename App").advance(1).type(label);
  }
  std::string storedAs(const std::string& label) {
    typeLabel(phone, label);
    duration = test::timeOf([&] { phone.tap("Apply"); });
    return bytes();
  }

  /// Boots on what the last cut left, asks for the other label and cuts.
  template <class Cut>
  void cutAgainAndAgain(Cut cut) {
    for (int i = 0; i < test::PowerCut::cuts; ++i) {
      sim::Phone another(phone.options());
      typeLabel(another, bytes() == first ? "Second" : "First");
      cut(another);
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
  cutAgainAndAgain([&](sim::Phone& another) { power.duringChange(another, "tap", {{"title", "Apply"}}, duration); });
}

TEST_P(WholeSettings, WhenThePowerFailsWhileTheFileIsWritten) {
  cutAgainAndAgain([&](sim::Phone& another) { ASSERT_TRUE(power.duringWrite(another, "tap", {{"title", "Apply"}})); });
}
