// Every cell of the pane changes what the library does, at once.
#include <algorithm>
#include <set>

#include "simulator/device/property_list.hpp"
#include "tests/pane/pane.hpp"
#include "tests/support/places.hpp"

namespace {

using test::app;
using test::Phone;

const std::vector<sim::TouchSample> up{{0, -20}}, down{{0, 20}};

/// A cell, what it is set to, and something on the home screen that is so before or after, but not both.
struct Cell {
  std::string name;  ///< in the names of tests
  std::string label, standard, changed;
  bool before;
  std::function<bool(Phone&)> effect;
};

void PrintTo(const Cell& cell, std::ostream* stream) { *stream << cell.label; }

bool offers(Phone& phone, const std::string& title) {
  const auto titles = test::menuOf(phone);
  return std::find(titles.begin(), titles.end(), title) != titles.end();
}

/// A switch of the menu's entry of that title.
Cell entry(const std::string& name, const std::string& label, const std::string& title) {
  return {name, label, "on", "off", true, [title](Phone& phone) { return offers(phone, title); }};
}
Cell entry(const std::string& name, const std::string& label) { return entry(name, label, label); }

bool listsTheMenu(Phone& phone) {
  phone.forceTouch(app);
  const auto list = phone.screen().quickActions;
  phone.home();
  return list && std::any_of(list->entries.begin(), list->entries.end(),
                             [](const auto& each) { return each.title == "Sprigdial"; });
}

bool opensWhileEditing(Phone& phone) {
  phone.edit(true);
  const bool opened = test::opensAMenu(phone, up);
  phone.edit(false);
  return opened;
}

bool takesTextsForBadges(Phone& phone) {
  phone.advance(1).swipeUp(app).tap("Set Badges");
  const bool takes = phone.alert().textFields.at(0).keyboard == "default";
  phone.tap("Cancel");
  return takes;
}

bool labelsAreSeen(Phone& phone) { return !phone.icon(app).labelHidden; }

bool sounds(Phone& phone) {
  const std::size_t before = phone.events().size();
  const auto events = phone.notify(app, "Hello", {"sound"}).events(before);
  return std::find(events.begin(), events.end(), "sound for " + app) != events.end();
}

bool showsBanners(Phone& phone) {
  const auto banners = [&] { return phone.screen().banners.size(); };
  const auto before = banners();
  phone.notify(app, "Hello", {"banner"});
  return banners() > before;
}

const Cell cells[] = {
    {"Enabled", "Enabled", "on", "off", true, [](Phone& phone) { return test::opensAMenu(phone, up); }},
    {"QuickActionList", "Quick-Action List", "off", "on", false, listsTheMenu},
    {"SwipeDown", "Swipe Direction", "Up", "Down", false, [](Phone& phone) { return test::opensAMenu(phone, down); }},
    {"SwipeOff", "Swipe Direction", "Up", "Off", true, [](Phone& phone) { return test::opensAMenu(phone, up); }},
    {"SwipeDistance", "Swipe Distance", "1", "20", true, [](Phone& phone) { return test::opensAMenu(phone, up); }},
    {"SwipeWhileEditing", "Swipe While Editing", "off", "on", false, opensWhileEditing},
    entry("Rename", "Rename App"),
    entry("ClearBadges", "Clear Badges"),
    entry("SetBadges", "Set Badges"),
    entry("CopyID", "Copy BundleID"),
    entry("CopySchemes", "Copy URL Schemes"),
    entry("FilzaApp", "Open in Filza", "Open in Filza [App]"),
    entry("FilzaData", "Open in Filza", "Open in Filza [Data]"),
    entry("ClearCaches", "Clear Caches", "Clear Caches(0 MB)"),
    entry("ShowSize", "Show Size", "Clear Caches(0 MB)"),
    entry("BackUp", "Backup Data"),
    entry("Restore", "Restore Data"),
    entry("DeleteBackUp", "Delete Backup Data"),
    entry("Reset", "Remove All User Data"),
    entry("Mute", "Mute Notification"),
    entry("OpenApp", "Open App"),
    {"TextBadges", "Text Badges", "off", "on", false, takesTextsForBadges},
    {"HideLabels", "Hide Labels", "off", "on", true, labelsAreSeen},
    {"MutingBanners", "Muting", "Both", "Banners", false, sounds},
    {"MutingLockScreen", "Muting", "Both", "Lock Screen", false, showsBanners},
};

class PaneCells : public testing::TestWithParam<std::tuple<sim::Generation, Cell>> {
 protected:
  Phone phone{std::get<0>(GetParam())};
  const Cell& cell = std::get<1>(GetParam());

  // An application for which the menu has every entry, and whose notifications are muted.
  void SetUp() override {
    phone.install({});
    phone.setBadge(app, 4);
    std::filesystem::create_directories(phone.path("/var/mobile/Documents/Sprigdial/" + app));
    sim::PropertyList(nlohmann::ordered_json{{"entries", {{{"id", app}, {"timeStamp", -1}}}}})
        .write(phone.path("/var/mobile/Library/Preferences/com.morvanel.sprigdial.menu.plist"));
    phone.openPane("Sprigdial");
  }
  std::string shown() { return phone.pane().cell(cell.label)->value; }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, PaneCells, testing::Combine(test::bothGenerations, testing::ValuesIn(cells)),
                         [](const auto& info) {
                           return std::get<1>(info.param).name +
                                  (std::get<0>(info.param) == sim::Generation::old ? "Old" : "New");
                         });

TEST_P(PaneCells, TakeEffectAtOnceAndForGood) {
  EXPECT_EQ(shown(), cell.standard);
  EXPECT_EQ(cell.effect(phone), cell.before);
  phone.setCell(cell.label, cell.changed);
  EXPECT_EQ(cell.effect(phone), !cell.before);
  phone.setCell(cell.label, cell.standard);
  EXPECT_EQ(cell.effect(phone), cell.before);
  phone.setCell(cell.label, cell.changed);
  phone.flush();
  EXPECT_EQ(cell.effect(phone), !cell.before);
  phone.respring();
  EXPECT_EQ(cell.effect(phone), !cell.before);
  phone.closePane().openPane("Sprigdial");
  EXPECT_EQ(shown(), cell.changed);
}

TEST(PaneCellsTable, HasARowForEveryCellOfThePane) {
  std::set<std::string> tested;
  for (const Cell& cell : cells) tested.insert(cell.label);
  std::set<std::string> offered;
  const auto root = sim::PropertyList::read(test::sourceFile("pane/Root.plist")).value().value();
  for (const auto& item : root.at("items"))
    if (item.contains("key")) offered.insert(item.at("label").get<std::string>());
  EXPECT_EQ(tested, offered);
}
