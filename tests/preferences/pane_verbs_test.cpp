// The settings application in scripts and at the console: its verbs, its picture, what helps on.
#include <gtest/gtest.h>

#include <sstream>

#include "simulator/control/completion.hpp"
#include "simulator/control/print.hpp"
#include "simulator/control/session.hpp"
#include "tests/support/places.hpp"
#include "tests/support/test_panes.hpp"

namespace {

using Strings = std::vector<std::string>;

class PaneVerbs : public testing::Test {
 protected:
  void SetUp() override {
    play("boot old");
    const sim::Device& device = session.phone().device();
    test::installPane(device, "TestPane", "Test", "test-pane.so", "TestPaneController");
    test::writeRows(
        device,
        {
            test::row("PSGroupCell", "Looks", {{"footerText", "How it looks to a person who is at home."}}),
            test::setting("PSSwitchCell", "Bright", "bright", {{"default", true}}),
            test::setting("PSSwitchCell", "Locked", "locked", {{"enabled", false}}),
            test::row("PSGroupCell", "Side"),
            test::setting(
                "PSSegmentCell", "Side", "side",
                {{"default", 1}, {"validValues", {0, 1}}, {"validTitles", test::Json::array({"Left", "Right"})}}),
            test::setting("PSSliderCell", "Size", "size", {{"default", 20}, {"min", 10}, {"max", 40}}),
            test::setting("PSEditTextCell", "Name", "name", {{"default", "Nobody"}}),
            test::row("PSLinkCell", "Games", {{"detail", "TestGamesController"}}),
            test::row("PSButtonCell", "Ask", {{"action", "ask:"}}),
        });
  }
  std::string play(const std::string& line) {
    output.str("");
    session.play(line);
    return output.str();
  }
  std::string refusal(const std::string& line) {
    try {
      play(line);
    } catch (const sim::BadInput& refused) {
      return refused.what();
    }
    return "nothing was refused";
  }

  std::ostringstream output;
  sim::Session session{{.buildFolder = test::buildFolder}, output};
};

}  // namespace

TEST_F(PaneVerbs, OpenLookSetPressDeleteAndClose) {
  play("pane-open Test");
  EXPECT_EQ(play("pane"), R"(Settings application
  ╭──────────────────────────────────────────────────╮
  │ ‹ Settings         Test Pane                     │
  ├──────────────────────────────────────────────────┤
  │ Looks                                            │
  │   Bright                                      on │
  │   (Locked)                                   off │
  │ How it looks to a person who is at home.         │
  ├──────────────────────────────────────────────────┤
  │ Side                                             │
  │                  Left   [Right]                  │
  │   ────────●────────────────                   20 │
  │   Name                                [ Nobody ] │
  │   Games                                        › │
  │   Ask                                            │
  ╰──────────────────────────────────────────────────╯
)");
  play("pane-set Bright off");
  EXPECT_NE(play("pane").find("Bright                                     off"), std::string::npos);
  play("pane-press Games");
  play("pane-delete Chess");
  EXPECT_EQ(play("pane"), R"(Settings application
  ╭──────────────────────────────────────────────────╮
  │ ‹ Test Pane          Games                  Edit │
  ├──────────────────────────────────────────────────┤
  │ Games                                            │
  │   Go                                  Go for two │
  │   Solitaire                    Solitaire for two │
  ╰──────────────────────────────────────────────────╯
)");
  play("pane-back");
  play("pane-press Ask");
  EXPECT_NE(play("pane").find("Sure?"), std::string::npos);
  play("pane-press No");
  play("pane-close");
  EXPECT_EQ(refusal("pane"), "the settings application is not open");
}

TEST_F(PaneVerbs, ExpectationsLookAtBothScreens) {
  EXPECT_THROW(play("expect Bright"), sim::ExpectationFailed);
  play("pane-open Test");
  play("expect Bright");
  play("expect PhotoBox");
  EXPECT_THROW(play("expect-not Bright"), sim::ExpectationFailed);
  EXPECT_EQ(play("screen").find("Bright"), std::string::npos) << "the home screen's alone";
  play("pane-close");
  play("expect-not Bright");
}

TEST_F(PaneVerbs, RefuseWhatThePaneDoesNotHave) {
  EXPECT_EQ(refusal("pane-set Bright on"), "the settings application is not open");
  play("pane-open Test");
  EXPECT_EQ(refusal("pane-set Bright"), "usage: pane-set LABEL VALUE");
  EXPECT_EQ(refusal("pane-set Side Up"), "\"Side\" has no segment \"Up\"; there are \"Left\", \"Right\"");
  EXPECT_EQ(refusal("pane-delete Bright"), "\"Bright\" cannot be swiped away");
  EXPECT_EQ(refusal("pane-press Nothing"),
            "No cell \"Nothing\"; there are \"Bright\", \"Locked\", \"Side\", \"Size\", \"Name\", \"Games\", \"Ask\"");
  EXPECT_EQ(refusal("pane-press Two words"), "too many words; quote what has blanks: pane-press \"Two words\"");
}

TEST_F(PaneVerbs, AreCompletedByWhatThePaneShows) {
  const auto words = [&](const std::string& line) { return sim::complete(session, line).candidates; };
  EXPECT_TRUE(words("pane-set ").empty()) << "it is not open";
  play("pane-open Test");
  EXPECT_EQ(words("pane-set B"), Strings{"Bright"});
  EXPECT_EQ(words("pane-set Side "), (Strings{"on", "off", "Left", "Right"}));
  play("pane-press Games");
  EXPECT_EQ(words("pane-press "), (Strings{"Chess", "Go", "Solitaire", "Edit"}));
  play("pane-back");
  play("pane-press Ask");
  EXPECT_EQ(words("pane-press "), (Strings{"Yes", "No"}));
}

TEST_F(PaneVerbs, StandInTheHelp) {
  const std::string help = play("help");
  for (const char* verb : {"pane", "pane-open LABEL", "pane-set LABEL VALUE", "pane-press LABEL", "pane-delete LABEL",
                           "pane-back", "pane-close"}) {
    EXPECT_NE(help.find(std::string("\n") + verb + "\n"), std::string::npos) << verb;
  }
}

TEST_F(PaneVerbs, ItsDeathIsToldAndThePhoneGoesOn) {
  play("pane-open Test");
  session.phone().crashPane();
  EXPECT_EQ(refusal("pane"), "the settings application is not open");
  play("expect PhotoBox");
}
