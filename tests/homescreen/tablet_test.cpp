// Sheets on a tablet: popovers, without a cancel button.
#include "tests/homescreen/views.hpp"

namespace {

using test::viewsOf;

const std::string notes = "com.example.notes";

class Tablet : public test::Generations {
 protected:
  Tablet() { phone.options().tablet = true; }
  sim::Frame popover() { return viewsOf(phone.screen(), "_UIAlertControllerView").at(0).frame; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Tablet, test::bothGenerations, test::generationName);

TEST_P(Tablet, ASheetHasNoCancelButton) {
  phone.openMenu(notes);
  EXPECT_FALSE(phone.hasButton("Cancel"));
  EXPECT_EQ(test::refusal([&] { phone.tap("Cancel"); }), "The sheet or alert has no button \"Cancel\"");
  for (const auto& button : viewsOf(phone.screen(), "_UIAlertControllerActionView"))
    EXPECT_NE(test::caption(button), "Cancel");
}

TEST_P(Tablet, AnAlertHasOne) {
  phone.touch(notes).perform("setBadges").advance(test::presentation);
  EXPECT_TRUE(phone.hasButton("Cancel"));
  test::touchAt(phone, 5, 5);
  phone.advance(test::dismissal);
  EXPECT_TRUE(phone.showsAlert());
  phone.tap("Cancel");
  EXPECT_FALSE(phone.showsAlert());
}

TEST_P(Tablet, ATapOutsideThePopoverCancels) {
  phone.openMenu(notes);
  phone.advance(test::presentation);
  test::touchAt(phone, 5, 500);
  phone.advance(test::dismissal);
  EXPECT_TRUE(phone.screen().windows.empty()) << "the cancel button's handler takes the window away";
  phone.advance(1);
  phone.openMenu(notes);
  EXPECT_TRUE(phone.showsAlert());
}

TEST_P(Tablet, ATapInsideThePopoverDoesNot) {
  phone.openMenu(notes);
  phone.advance(test::presentation);
  const auto frame = popover();
  test::touchAt(phone, frame.x + 20, frame.y + 10);
  phone.advance(test::dismissal);
  EXPECT_TRUE(phone.showsAlert());
}

// Without an arrow it stands over the middle of the whole window.
TEST_P(Tablet, ThePopoverStandsAtItsAnchorInsideTheScreen) {
  phone.openMenu(notes);
  const auto frame = popover();
  EXPECT_EQ(frame.width, 304);
  EXPECT_EQ(frame.x + frame.width / 2, 768 / 2);
  EXPECT_EQ(frame.y + frame.height / 2, 1024 / 2);
  for (const auto& row : viewsOf(phone.screen(), "_UIAlertControllerActionView")) EXPECT_EQ(row.frame.height, 57);
}
