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
  EXPECT_EQ(phone.screen().orientation, "portrait");
  test::rotate(phone, "landscape");
  const auto seen = phone.screen();
  EXPECT_EQ(seen.orientation, "landscape");
  EXPECT_EQ(seen.bounds, sideways());
  EXPECT_EQ(test::windowNamed(seen, "the home screen")->frame, sideways());
  test::rotate(phone, "portrait");
  EXPECT_EQ(phone.screen().bounds, bounds());
}

TEST_P(Rotation, TheIconsAreLaidOutAnewAndCanBeTouched) {
  const auto before = phone.screen().icons;
  test::rotate(phone, "landscape");
  const auto icons = phone.screen().icons;
  EXPECT_EQ(icons[6].frame.x, icons[0].frame.x) << "six columns";
  EXPECT_GT(icons[6].frame.y, icons[0].frame.y);
  for (const auto& icon : icons) {
    EXPECT_LE(test::bottom(icon.frame), sideways().height);
    phone.touch(icon.id.empty() ? icon.label : icon.id);
  }
  test::rotate(phone, "portrait");
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(phone.screen().icons[i].frame, before[i].frame);
}

TEST_P(Rotation, WhatTheAddOnOpensThenFitsTheScreen) {
  test::rotate(phone, "landscape");
  phone.openMenu(notes);
  const auto seen = phone.screen();
  EXPECT_EQ(seen.windows.at(0).frame, sideways());
  const auto sheet = viewsOf(seen, "_UIAlertControllerView").at(0).frame;
  EXPECT_EQ(sheet.width, 375 - 16) << "as wide as in portrait";
  EXPECT_GE(sheet.y, 0);
  EXPECT_LE(test::bottom(sheet), sideways().height);
  phone.tap("Copy BundleID");
  EXPECT_EQ(phone.pasteboard().value().text, notes);
}

TEST_P(Rotation, WhatIsOpenAlreadyStaysAsItsOwnerMadeIt) {
  phone.openMenu(notes);
  test::rotate(phone, "landscape");
  EXPECT_EQ(phone.screen().windows.at(0).frame, bounds());
}

TEST_P(Rotation, TheSystemsWindowsFollow) {
  phone.launch(notes);
  test::rotate(phone, "landscape");
  EXPECT_EQ(viewsOf(phone.screen(), "SBApplicationView").at(0).frame, sideways());
}

TEST_P(Rotation, ATabletHasFiveColumnsThen) {
  phone.options().tablet = true;
  test::rotate(phone, "landscape");
  const auto seen = phone.screen();
  EXPECT_EQ(seen.bounds, (Frame{0, 0, 1024, 768}));
  EXPECT_EQ(seen.icons[5].frame.x, seen.icons[0].frame.x);
}

TEST_P(Rotation, ToSomethingElseIsRefused) {
  EXPECT_THROW(test::rotate(phone, "sideways"), sim::BadInput);
  EXPECT_EQ(phone.screen().orientation, "portrait");
}
