// Sheets on a tablet: popovers, without a cancel button.
#include "tests/homescreen/views.hpp"

namespace {

using test::viewsOf;

const std::string notes = "com.example.notes";

class Tablet : public test::Generations {
 protected:
  Tablet() { home.options().tablet = true; }
  sim::Frame popover() { return viewsOf(home.screen(), "_UIAlertControllerView").at(0).frame; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Tablet, test::bothGenerations, test::generationName);

TEST_P(Tablet, ASheetHasNoCancelButton) {
  home.openMenu(notes);
  EXPECT_FALSE(home.hasButton("Cancel"));
  EXPECT_EQ(test::refusal([&] { home->tap("Cancel"); }), "The sheet or alert has no button \"Cancel\"");
  for (const auto& button : viewsOf(home.screen(), "_UIAlertControllerActionView"))
    EXPECT_NE(test::caption(button), "Cancel");
}

TEST_P(Tablet, AnAlertHasOne) {
  home->touch(notes).perform("setBadges").advance(test::presentation);
  EXPECT_TRUE(home.hasButton("Cancel"));
  test::touchAt(home, 5, 5);
  home->advance(test::dismissal);
  EXPECT_TRUE(home.showsAlert());
  home->tap("Cancel");
  EXPECT_FALSE(home.showsAlert());
}

TEST_P(Tablet, ATapOutsideThePopoverCancels) {
  home.openMenu(notes);
  home->advance(test::presentation);
  test::touchAt(home, 5, 500);
  home->advance(test::dismissal);
  EXPECT_TRUE(home.screen().windows.empty()) << "the cancel button's handler takes the window away";
  home->advance(1);
  home.openMenu(notes);
  EXPECT_TRUE(home.showsAlert());
}

TEST_P(Tablet, ATapInsideThePopoverDoesNot) {
  home.openMenu(notes);
  home->advance(test::presentation);
  const auto frame = popover();
  test::touchAt(home, frame.x + 20, frame.y + 10);
  home->advance(test::dismissal);
  EXPECT_TRUE(home.showsAlert());
}

// Without an arrow it stands over the middle of the whole window.
TEST_P(Tablet, ThePopoverStandsAtItsAnchorInsideTheScreen) {
  home.openMenu(notes);
  const auto frame = popover();
  EXPECT_EQ(frame.width, 304);
  EXPECT_EQ(frame.x + frame.width / 2, 768 / 2);
  EXPECT_EQ(frame.y + frame.height / 2, 1024 / 2);
  for (const auto& row : viewsOf(home.screen(), "_UIAlertControllerActionView")) EXPECT_EQ(row.frame.height, 57);
}
