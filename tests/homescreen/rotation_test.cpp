// The device is turned.
#include "tests/homescreen/views.hpp"

namespace {

using sim::Frame;
using test::viewsOf;

const std::string notes = "com.example.notes";

class Rotation : public test::Generations {
 protected:
  Frame sideways() const { return {0, 0, bounds().height, bounds().width}; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Rotation, test::bothGenerations, test::generationName);

TEST_P(Rotation, TheScreenTurns) {
  EXPECT_EQ(home.screen().orientation, "portrait");
  test::rotate(home, "landscape");
  const auto seen = home.screen();
  EXPECT_EQ(seen.orientation, "landscape");
  EXPECT_EQ(seen.bounds, sideways());
  EXPECT_EQ(test::windowNamed(seen, "the home screen")->frame, sideways());
  test::rotate(home, "portrait");
  EXPECT_EQ(home.screen().bounds, bounds());
}

TEST_P(Rotation, TheIconsAreLaidOutAnewAndCanBeTouched) {
  const auto before = home.screen().icons;
  test::rotate(home, "landscape");
  const auto icons = home.screen().icons;
  EXPECT_EQ(icons[6].frame.x, icons[0].frame.x) << "six columns";
  EXPECT_GT(icons[6].frame.y, icons[0].frame.y);
  for (const auto& icon : icons) {
    EXPECT_LE(test::bottom(icon.frame), sideways().height);
    home->touch(icon.id.empty() ? icon.label : icon.id);
  }
  test::rotate(home, "portrait");
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(home.screen().icons[i].frame, before[i].frame);
}

TEST_P(Rotation, WhatTheAddOnOpensThenFitsTheScreen) {
  test::rotate(home, "landscape");
  home.openMenu(notes);
  const auto seen = home.screen();
  EXPECT_EQ(seen.windows.at(0).frame, sideways());
  const auto sheet = viewsOf(seen, "_UIAlertControllerView").at(0).frame;
  EXPECT_EQ(sheet.width, 375 - 16) << "as wide as in portrait";
  EXPECT_GE(sheet.y, 0);
  EXPECT_LE(test::bottom(sheet), sideways().height);
  home->tap("Copy BundleID");
  EXPECT_EQ(home->pasteboard().value().text, notes);
}

TEST_P(Rotation, WhatIsOpenAlreadyStaysAsItsOwnerMadeIt) {
  home.openMenu(notes);
  test::rotate(home, "landscape");
  EXPECT_EQ(home.screen().windows.at(0).frame, bounds());
}

TEST_P(Rotation, TheSystemsWindowsFollow) {
  home->launch(notes);
  test::rotate(home, "landscape");
  EXPECT_EQ(viewsOf(home.screen(), "SBApplicationView").at(0).frame, sideways());
}

TEST_P(Rotation, ATabletHasFiveColumnsThen) {
  home.options().tablet = true;
  test::rotate(home, "landscape");
  const auto seen = home.screen();
  EXPECT_EQ(seen.bounds, (Frame{0, 0, 1024, 768}));
  EXPECT_EQ(seen.icons[5].frame.x, seen.icons[0].frame.x);
}

TEST_P(Rotation, ToSomethingElseIsRefused) {
  EXPECT_THROW(test::rotate(home, "sideways"), sim::BadInput);
  EXPECT_EQ(home.screen().orientation, "portrait");
}
