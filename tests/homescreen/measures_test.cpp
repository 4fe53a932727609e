// Where everything that is seen stands, and how large it is.
#include <set>

#include "tests/homescreen/views.hpp"

namespace {

using sim::Frame;
using test::bottom;
using test::caption;
using test::viewsOf;
using test::windowNamed;

const std::string app = "com.example.test";
const std::string notes = "com.example.notes";

class Measures : public test::Generations {
 protected:
  double statusBar() const { return isOld() ? 20 : 44; }
  double belowSheets() const { return isOld() ? 8 : 34; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, Measures, test::bothGenerations, test::generationName);

TEST_P(Measures, ThePhoneOfEachGeneration) {
  EXPECT_EQ(phone.screen().bounds, bounds());
  EXPECT_EQ(windowNamed(phone.screen(), "the home screen")->frame, bounds());
}

TEST_P(Measures, ATabletIsLarger) {
  phone.options().tablet = true;
  EXPECT_EQ(phone.screen().bounds, (Frame{0, 0, 768, 1024}));
  EXPECT_EQ(phone.icon(notes).frame.width, 76);
}

TEST_P(Measures, IconsStandInFourColumns) {
  const auto icons = phone.screen().icons;
  ASSERT_GT(icons.size(), 8U);
  const double first = isOld() ? 28 : 72;
  const double row = isOld() ? 88 : 102;
  for (std::size_t i = 0; i < icons.size(); ++i) {
    const auto column = static_cast<double>(i % 4);
    const auto below = static_cast<double>(i / 4);
    EXPECT_EQ(icons[i].frame, (Frame{27 + 87 * column, first + row * below, 60, 74})) << icons[i].label;
    EXPECT_EQ(icons[i].page, 1);
  }
}

TEST_P(Measures, AnIconIsAPictureWithALabelBelowAndABadgeAtItsCorner) {
  for (const auto& [icon, frame] : viewsOf(phone.screen(), "SBIconView")) {
    const auto& picture = icon.subviews.at(0);
    EXPECT_EQ(picture.frame, (Frame{0, 0, 60, 60}));
    const auto& label = icon.subviews.at(1);
    EXPECT_EQ(label.frame, (Frame{0, 60, 60, 14}));
    EXPECT_EQ(label.fontSize, 12);
    if (label.text == "Notes") {
      EXPECT_NE(picture.image.find("/Notes.app/Icon.png"), std::string::npos) << picture.image;
      EXPECT_EQ(icon.subviews.at(2).frame, (Frame{46, -10, 24, 24}));
      EXPECT_EQ(icon.subviews.at(2).text, "3");
      EXPECT_EQ(icon.subviews.at(2).background, (sim::Color{1, 0.23, 0.19, 1}));
    } else if (label.text == "Weather") {
      EXPECT_EQ(icon.subviews.size(), 2U);
    }
  }
}

TEST_P(Measures, TheBadgeFollowsTheIcon) {
  phone.install({});
  phone.setBadge(app, 4);
  EXPECT_EQ(phone.icon(app).badge, "4");
  phone.openMenu();
  phone.tap("Clear Badges").advance(1);
  EXPECT_EQ(phone.icon(app).badge, "");
  phone.openMenu();
  phone.tap("Set Badges").type("12").tap("Apply");
  EXPECT_EQ(phone.icon(app).badge, "12");
}

TEST_P(Measures, TheStatusBarTellsTheTime) {
  phone.options().clock = 1709820309;  // 2024-03-07 14:05:09
  phone.options().timeZone = "UTC";
  const auto seen = phone.screen();
  const auto* bar = windowNamed(seen, "the status bar");
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->frame, (Frame{0, 0, 375, statusBar()}));
  EXPECT_EQ(bar->views.at(0).text, "14:05");
  phone.advance(60);
  EXPECT_EQ(windowNamed(phone.screen(), "the status bar")->views.at(0).text, "14:06");
}

// Pages and dock

TEST_P(Measures, WhatDoesNotFitGoesOnTheNextPage) {
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(10 + i);
    phone.install({.id = "com.example.z" + number, .name = "Z" + number, .folder = "Z" + number + ".app"});
  }
  const auto seen = phone.screen();
  EXPECT_EQ(seen.pages, 2);
  EXPECT_EQ(seen.page, 1);
  ASSERT_GT(seen.icons.size(), 24U);
  EXPECT_EQ(seen.icons[23].page, 1);
  EXPECT_EQ(seen.icons[24].page, 2);
  EXPECT_EQ(seen.icons[24].frame.x, 375 + 27);
  EXPECT_EQ(seen.icons[24].frame.y, seen.icons[0].frame.y);
}

TEST_P(Measures, ThePageIsTurnedByADrag) {
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(10 + i);
    phone.install({.id = "com.example.z" + number, .name = "Z" + number, .folder = "Z" + number + ".app"});
  }
  const std::string last = "com.example.z29";
  EXPECT_EQ(test::refusal([&] { phone.touch(last); }), "\"com.example.z29\" is on page 2, and page 1 is shown");
  test::drag(phone, 200, 500, -40, 0);
  EXPECT_EQ(phone.screen().page, 1) << "not far enough";
  test::drag(phone, 200, 500, -100, 0);
  EXPECT_EQ(phone.screen().page, 2);
  EXPECT_EQ(phone.icon(last).frame.x, 27 + 87 * ((phone.screen().icons.size() - 26) % 4));
  phone.openMenu(last);
  EXPECT_EQ(phone.alert().title, "Z29");
  phone.tap("Cancel");
  test::drag(phone, 200, 500, -100, 0);
  EXPECT_EQ(phone.screen().page, 2) << "it is the last";
  test::drag(phone, 200, 500, 100, 0);
  EXPECT_EQ(phone.screen().page, 1);
}

TEST_P(Measures, TheDockHoldsWhatTheUserPutThere) {
  sim::PropertyList(nlohmann::ordered_json{{"buttonBar", {notes, "com.example.weather"}}})
      .write(phone.path("/var/mobile/Library/SpringBoard/IconState.plist"));
  const auto seen = phone.screen();
  const auto docks = viewsOf(seen, "SBDockIconListView");
  ASSERT_EQ(docks.size(), 1U);
  EXPECT_EQ(docks[0].frame, isOld() ? (Frame{0, 571, 375, 96}) : (Frame{12, 704, 351, 96}));
  EXPECT_EQ(docks[0].view.subviews.size(), 2U);
  const auto* docked = seen.icon(notes);
  EXPECT_FALSE(docked->page);
  EXPECT_TRUE(docked->labelHidden);
  EXPECT_EQ(docked->label, "");
  EXPECT_EQ(docked->frame.x, 27);
  EXPECT_GE(docked->frame.y, docks[0].frame.y);
  phone.openMenu(notes);
  EXPECT_EQ(phone.alert().title, "Notes");
}

// Sheets and alerts

TEST_P(Measures, ASheetFillsTheWidthButForItsMargins) {
  phone.removeFileManager();
  phone.openMenu(notes);
  const auto rows = viewsOf(phone.screen(), "_UIAlertControllerActionView");
  ASSERT_EQ(rows.size(), phone.buttons().size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].frame.x, 8);
    EXPECT_EQ(rows[i].frame.width, 375 - 16);
    EXPECT_EQ(rows[i].frame.height, 57);
    EXPECT_EQ(caption(rows[i]), phone.buttons()[i]);
  }
}

TEST_P(Measures, TheCancelButtonStandsApartAtTheLowerEdge) {
  phone.install({});
  phone.touch(app).perform("muteNotifications");
  const auto rows = viewsOf(phone.screen(), "_UIAlertControllerActionView");
  const auto& cancel = rows.back();
  ASSERT_EQ(caption(cancel), "Cancel");
  EXPECT_EQ(bottom(cancel.frame), bounds().height - belowSheets());
  EXPECT_EQ(bottom(rows[rows.size() - 2].frame) + 8, cancel.frame.y);
}

TEST_P(Measures, AListThatIsTooLongScrolls) {
  phone.install({});
  phone.setBadge(app, 4);
  std::filesystem::create_directories(phone.path("/var/mobile/Documents/Sprigdial/" + app));
  phone.openMenu();
  const auto before = viewsOf(phone.screen(), "UIScrollView");
  const auto& list = before.back();
  ASSERT_EQ(list.view.subviews.size(), 14U);
  EXPECT_LT(list.frame.height, 14 * 57);
  EXPECT_GE(list.frame.y, statusBar());
  EXPECT_EQ(list.view.scrolledY, 0);
  phone.tap("Open App");
  EXPECT_EQ(phone.screen().frontmost, app);
}

TEST_P(Measures, AnAlertStandsInTheMiddle) {
  phone.install({});
  phone.touch(app).perform("clearCaches");
  const auto seen = phone.screen();
  const auto alert = viewsOf(seen, "_UIAlertControllerView").at(0).frame;
  EXPECT_EQ(alert.width, 270);
  EXPECT_EQ(alert.x, (375 - 270) / 2.0);
  EXPECT_NEAR(alert.y + alert.height / 2, bounds().height / 2, 0.5);
  const auto rows = viewsOf(seen, "_UIAlertControllerActionView");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(caption(rows[0]), "Cancel");
  EXPECT_EQ(caption(rows[1]), "YES");
  for (const auto& row : rows) {
    EXPECT_EQ(row.frame.height, 44);
    EXPECT_EQ(row.frame.width, 135);
    EXPECT_EQ(row.frame.y, rows[0].frame.y);
  }
}

TEST_P(Measures, WhatLiesBehindIsDimmed) {
  phone.openMenu(notes);
  const auto dimming = viewsOf(phone.screen(), "UIDimmingView");
  ASSERT_EQ(dimming.size(), 1U);
  EXPECT_EQ(dimming[0].frame, bounds());
  EXPECT_EQ(dimming[0].view.background, (sim::Color{0, 0, 0, 0.4}));
}

TEST_P(Measures, TheKeyboardIsUpWhileATextFieldHasTheFocus) {
  phone.install({});
  EXPECT_EQ(windowNamed(phone.screen(), "the keyboard"), nullptr);
  phone.touch(app).perform("setBadges");
  auto seen = phone.screen();
  const auto* keyboard = windowNamed(seen, "the keyboard");
  ASSERT_NE(keyboard, nullptr);
  const double height = isOld() ? 216 : 291;
  EXPECT_EQ(keyboard->frame, (Frame{0, bounds().height - height, 375, height}));
  EXPECT_EQ(keyboard->views.at(0).identifier, "number pad");
  const auto field = viewsOf(seen, "UITextField").at(0);
  EXPECT_TRUE(field.view.focused);
  EXPECT_EQ(field.frame.height, 30);
  const auto alert = viewsOf(seen, "_UIAlertControllerView").at(0).frame;
  EXPECT_NEAR(alert.y + alert.height / 2, (bounds().height - height) / 2, 0.5);
  phone.type("7");
  EXPECT_EQ(viewsOf(phone.screen(), "UITextField").at(0).view.text, "7");
  phone.tap("Cancel");
  EXPECT_EQ(windowNamed(phone.screen(), "the keyboard"), nullptr);
}

TEST_P(Measures, ASheetTellsWhenItBeganToComeAndWhenItWillHaveCome) {
  phone.openMenu(notes);
  const auto seen = phone.screen();
  const auto transition = seen.windows.at(0).transition;
  ASSERT_TRUE(transition);
  EXPECT_EQ(transition->kind, "presentation");
  EXPECT_NEAR(transition->start, seen.passed, 1e-6);
  EXPECT_NEAR(transition->end - transition->start, test::presentation, 1e-6);
  phone.advance(test::presentation);
  EXPECT_FALSE(phone.screen().windows.at(0).transition);
  phone.tapLate("Cancel");
  EXPECT_EQ(phone.screen().windows.at(0).transition->kind, "dismissal");
  EXPECT_EQ(viewsOf(phone.screen(), "UIDimmingView").size(), 1U) << "it goes at the end";
}

// The rest

TEST_P(Measures, TheQuickActionListStandsByItsIcon) {
  phone.forceTouch(notes);
  const auto seen = phone.screen();
  const auto rows = viewsOf(seen, "SBUIActionView");
  ASSERT_EQ(rows.size(), seen.quickActions->entries.size());
  const auto icon = seen.icon(notes)->frame;
  EXPECT_EQ(rows[0].frame.y, bottom(icon) + 8);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].frame.height, isOld() ? 62 : 44);
    if (!isOld()) {
      EXPECT_EQ(rows[i].frame.width, 250);
    }
    EXPECT_EQ(caption(rows[i]), seen.quickActions->entries[i].title);
    EXPECT_GE(rows[i].frame.x, 8);
    EXPECT_LE(test::right(rows[i].frame), 375 - 8);
  }
}

TEST_P(Measures, AnOpenApplicationFillsTheScreen) {
  phone.launch(notes);
  const auto seen = phone.screen();
  const auto view = viewsOf(seen, "SBApplicationView").at(0);
  EXPECT_EQ(view.frame, bounds());
  EXPECT_EQ(view.view.identifier, notes);
  phone.home();
  EXPECT_TRUE(viewsOf(phone.screen(), "SBApplicationView").empty());
}

TEST_P(Measures, ABannerHangsBelowTheStatusBar) {
  phone.notify(notes, "first").notify("com.example.mail", "second");
  const auto banners = viewsOf(phone.screen(), "NCNotificationView");
  ASSERT_EQ(banners.size(), 2U);
  EXPECT_EQ(banners[1].frame, (Frame{8, statusBar(), 375 - 16, 94}));
  EXPECT_EQ(banners[1].view.identifier, "com.example.mail");
  EXPECT_EQ(caption(banners[1]), "second");
}

TEST_P(Measures, ABannerGoesByItself) {
  phone.notify(notes, "first").advance(2).notify(notes, "second").advance(2.9);
  EXPECT_EQ(phone.screen().banners.size(), 2U);
  phone.advance(0.2);
  const auto left = phone.screen().banners;
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].text, "second");
  phone.advance(2).notify(notes, "third").home();
  EXPECT_TRUE(phone.screen().banners.empty());
  phone.advance(4).notify(notes, "fourth").advance(2);
  EXPECT_EQ(phone.screen().banners.size(), 1U) << "the third would have gone by now";
}

TEST_P(Measures, TheLockScreenListsItsNotifications) {
  phone.lock().screenOn().notify(notes, "first").notify(notes, "second");
  const auto seen = phone.screen();
  ASSERT_TRUE(seen.locked);
  const auto* window = windowNamed(seen, "the lock screen");
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->frame, bounds());
  ASSERT_EQ(window->views.size(), 3U);
  EXPECT_GT(window->views[2].frame.y, bottom(window->views[1].frame));
  EXPECT_EQ(window->views[2].subviews.at(0).text, "second");
}

TEST_P(Measures, ThePowerSliderLiesOverEverything) {
  phone.powerDown();
  const auto seen = phone.screen();
  EXPECT_EQ(seen.tree.back().name, "the power slider");
  EXPECT_EQ(viewsOf(seen, "_UIActionSlider").at(0).frame.width, 280);
  test::touch(phone, viewsOf(seen, "SBPowerDownCancelButton").at(0).frame);
  EXPECT_FALSE(phone.screen().poweringDown);
}

TEST_P(Measures, TheSwitcherShowsACardForEachApplication) {
  phone.launch(notes).home().launch("com.example.weather").home().ask("switcher");
  auto seen = phone.screen();
  const auto cards = viewsOf(seen, "SBAppSwitcherItem");
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(cards[0].view.identifier, "com.example.weather");
  EXPECT_EQ(cards[1].view.identifier, notes);
  test::touch(phone, cards[1].frame);
  seen = phone.screen();
  EXPECT_EQ(seen.frontmost, notes);
  EXPECT_EQ(windowNamed(seen, "the application switcher"), nullptr);
}
