// The settings application: its panes, what a person does with them, and how it lives beside the home screen.
#include <chrono>

#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"
#include "tests/support/test_panes.hpp"

namespace {

using Json = test::Json;
namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const std::string domain = test::paneDomain;

using test::row;
using test::setting;

class SettingsApplication : public test::Generations {
 protected:
  void SetUp() override {
    installPane("TestPane", "Test", "test-pane.so", "TestPaneController");
    writeRows({
        row("PSGroupCell", "Looks", {{"footerText", "How it looks."}}),
        setting("PSSwitchCell", "Bright", "bright", {{"default", true}}),
        setting("PSSwitchCell", "Locked", "locked", {{"enabled", false}}),
        row("PSGroupCell", "Side"),
        setting("PSSegmentCell", "Side", "side",
                {{"default", 1}, {"validValues", {0, 1, 2}}, {"validTitles", {"Left", "Right", "None"}}}),
        setting("PSSliderCell", "Size", "size", {{"default", 20}, {"min", 10}, {"max", 40}, {"showValue", true}}),
        setting("PSEditTextCell", "Name", "name", {{"default", "Nobody"}}),
        setting("PSTitleValueCell", "Shown", "side",
                {{"default", 1}, {"validValues", Json::array({1})}, {"validTitles", Json::array({"To the right"})}}),
        row("PSStaticTextCell", "Only a text"),
        row("PSLinkCell", "Games", {{"detail", "TestGamesController"}}),
        row("PSLinkCell", "Nowhere", {{"detail", "NoSuchController"}}),
        row("PSButtonCell", "Press", {{"action", "pressed:"}}),
        row("PSButtonCell", "Later", {{"action", "later:"}}),
        row("PSButtonCell", "Ask", {{"action", "ask:"}}),
        row("PSButtonCell", "Raise", {{"action", "raise:"}}),
    });
  }

  fs::path bundle(const std::string& name) const { return test::paneBundle(phone.device(), name); }
  void writeRows(const std::vector<Json>& items) const { test::writeRows(phone.device(), items); }
  void installEntry(const std::string& name, const Json& content) const {
    test::installEntry(phone.device(), name, content);
  }
  void installPane(const std::string& name, const std::string& label, const std::string& image,
                   const std::string& principalClass) const {
    test::installPane(phone.device(), name, label, image, principalClass);
  }
  std::string value(const std::string& label) {
    const sim::PaneOnScreen seen = phone.pane();
    const auto* cell = seen.cell(label);
    return cell != nullptr ? cell->value : "no cell " + label;
  }
  /// What the preferences daemon holds.
  std::string held() { return phone.preferences(domain).value_or(sim::PropertyList()).readable(); }
  Strings posts() { return phone.ask("darwin-posts").at("entries").get<Strings>(); }
  std::string refusal(const std::function<void()>& action) {
    try {
      action();
    } catch (const sim::BadInput& refused) {
      return refused.what();
    }
    return "nothing was refused";
  }
};

}  // namespace
INSTANTIATE_TEST_SUITE_P(, SettingsApplication, test::bothGenerations, test::generationName);

TEST_P(SettingsApplication, ShowsARowForEachPaneAndOpensIt) {
  phone.openPane("Test");
  const sim::PaneOnScreen pane = phone.pane();
  EXPECT_EQ(pane.title, "Test Pane");
  EXPECT_EQ(pane.back, "Settings");
  EXPECT_EQ(pane.labels(), (Strings{"Bright", "Locked", "Side", "Size", "Name", "Shown", "Only a text", "Games",
                                    "Nowhere", "Press", "Later", "Ask", "Raise"}));
  ASSERT_EQ(pane.cells[0].kind, "group");
  EXPECT_EQ(pane.cells[0].label, "Looks");
  EXPECT_EQ(pane.cells[0].footer, "How it looks.");
  EXPECT_EQ(pane.cell("Bright")->value, "on");
  EXPECT_FALSE(pane.cell("Locked")->enabled);
  EXPECT_EQ(pane.cell("Side")->value, "Right");
  EXPECT_EQ(pane.cell("Size")->value, "20");
  EXPECT_EQ(pane.cell("Name")->value, "Nobody");
  phone.paneBack();
  EXPECT_EQ(phone.pane().title, "Settings");
  EXPECT_EQ(phone.pane().labels(), Strings{"Test"});
}

// Cells

TEST_P(SettingsApplication, ASwitchGoesThroughTheDaemonAndTellsEverybody) {
  phone.openPane("Test").setCell("Bright", "off");
  EXPECT_EQ(value("Bright"), "off");
  EXPECT_EQ(held(), "{\n  \"bright\": false\n}");
  EXPECT_EQ(posts(), Strings{domain + ".changed"});
  phone.paneBack().openPane("Test");
  EXPECT_EQ(value("Bright"), "off");
  phone.setCell("Bright", "off");
  EXPECT_EQ(posts().size(), 1U) << "it was off already: nobody touches it";
}

TEST_P(SettingsApplication, ASegmentIsChosenByItsTitle) {
  phone.openPane("Test").setCell("Side", "None");
  EXPECT_EQ(value("Side"), "None");
  EXPECT_EQ(held(), "{\n  \"side\": 2\n}");
  EXPECT_EQ(refusal([&] { phone.setCell("Side", "Up"); }),
            "\"Side\" has no segment \"Up\"; there are \"Left\", \"Right\", \"None\"");
  EXPECT_EQ(value("Side"), "None");
}

TEST_P(SettingsApplication, AValueThatCannotBeChosenSelectsNoSegment) {
  phone.ask("set-preferences", {{"domain", domain}, {"values", {{"side", 7}}}});
  phone.openPane("Test");
  EXPECT_EQ(value("Side"), "");
  EXPECT_EQ(value("Shown"), "7");
}

TEST_P(SettingsApplication, ASliderGoesFromItsLeastToItsMost) {
  phone.openPane("Test").setCell("Size", "32.5");
  EXPECT_EQ(value("Size"), "32.5");
  EXPECT_EQ(held(), "{\n  \"size\": 32.5\n}");
  for (const char* wrong : {"9.9", "40.1", "wide", "", "nan", "20 "}) {
    EXPECT_EQ(refusal([&] { phone.setCell("Size", wrong); }),
              std::string("\"Size\" is a slider from 10 to 40: ") + wrong);
  }
  EXPECT_EQ(value("Size"), "32.5");
  phone.ask("set-preferences", {{"domain", domain}, {"values", {{"size", 1000}}}});
  phone.paneBack().openPane("Test");
  EXPECT_EQ(value("Size"), "40");
}

TEST_P(SettingsApplication, ATextIsTypedIntoItsField) {
  phone.openPane("Test").setCell("Name", "Somebody 🗝");
  EXPECT_EQ(value("Name"), "Somebody 🗝");
  EXPECT_EQ(held(), "{\n  \"name\": \"Somebody 🗝\"\n}");
}

TEST_P(SettingsApplication, AValueIsShownByItsTitle) {
  phone.openPane("Test");
  EXPECT_EQ(value("Shown"), "To the right");
  EXPECT_EQ(phone.pane().cell("Shown")->kind, "value");
  EXPECT_EQ(phone.pane().cell("Only a text")->kind, "text");
}

TEST_P(SettingsApplication, AButtonsActionGoesToItsTarget) {
  phone.openPane("Test").pressCell("Press");
  EXPECT_EQ(posts(), Strings{"com.example.pane.pressed"});
  phone.pressCell("Only a text");
  EXPECT_EQ(posts().size(), 1U);
}

TEST_P(SettingsApplication, ALinkLeadsToTheControllerOfItsName) {
  phone.openPane("Test").pressCell("Nowhere");
  EXPECT_EQ(phone.pane().title, "Test Pane") << "there is no such class";
  phone.pressCell("Games");
  EXPECT_EQ(phone.pane().title, "Games");
  EXPECT_EQ(phone.pane().back, "Test Pane");
  EXPECT_EQ(value("Chess"), "Chess for two");
  phone.paneBack().paneBack();
  EXPECT_EQ(refusal([&] { phone.paneBack(); }), "This is the first list: there is no way back");
}

TEST_P(SettingsApplication, AListOfChoicesMarksTheOneChosen) {
  writeRows({setting("PSLinkListCell", "Side", "side",
                     {{"default", 1},
                      {"detail", "PSListItemsController"},
                      {"validValues", {0, 1}},
                      {"validTitles", {"Left", "Right"}}})});
  phone.openPane("Test");
  EXPECT_EQ(value("Side"), "Right");
  phone.pressCell("Side");
  EXPECT_EQ(phone.pane().title, "Side");
  EXPECT_EQ(value("Left"), "");
  EXPECT_EQ(value("Right"), "✓");
  phone.pressCell("Left");
  EXPECT_EQ(value("Left"), "✓");
  EXPECT_EQ(value("Right"), "");
  EXPECT_EQ(held(), "{\n  \"side\": 0\n}");
  phone.paneBack();
  EXPECT_EQ(value("Side"), "Left");
}

TEST_P(SettingsApplication, RowsAreSwipedAwayWhereTheirListAllowsIt) {
  phone.openPane("Test");
  EXPECT_EQ(refusal([&] { phone.deleteCell("Press"); }), "\"Press\" cannot be swiped away");
  phone.pressCell("Games");
  EXPECT_TRUE(phone.pane().cell("Go")->deletable);
  EXPECT_FALSE(phone.pane().cell("Solitaire")->deletable);
  phone.deleteCell("Go");
  EXPECT_EQ(phone.pane().labels(), (Strings{"Chess", "Solitaire"}));
  EXPECT_EQ(posts(), Strings{"com.example.pane.removed.Go"});
  EXPECT_EQ(refusal([&] { phone.deleteCell("Solitaire"); }), "\"Solitaire\" cannot be swiped away");
  EXPECT_EQ(refusal([&] { phone.deleteCell("Go"); }), "No cell \"Go\"; there are \"Chess\", \"Solitaire\"");
}

TEST_P(SettingsApplication, TheEditButtonStartsAndEndsEditing) {
  phone.openPane("Test");
  EXPECT_FALSE(phone.pane().button);
  phone.pressCell("Games");
  EXPECT_EQ(phone.pane().button, "Edit");
  phone.pressCell("Edit");
  EXPECT_EQ(phone.pane().button, "Done");
  phone.deleteCell("Chess").pressCell("Done");
  EXPECT_EQ(phone.pane().button, "Edit");
  EXPECT_EQ(phone.pane().labels(), (Strings{"Go", "Solitaire"}));
  phone.paneBack();
  EXPECT_FALSE(phone.pane().button);
}

TEST_P(SettingsApplication, AnAlertOfAPaneIsAnsweredBeforeAnythingElse) {
  phone.openPane("Test").pressCell("Ask");
  ASSERT_TRUE(phone.pane().alert);
  EXPECT_EQ(phone.pane().alert->titles(), (Strings{"Yes", "No"}));
  EXPECT_EQ(refusal([&] { phone.setCell("Bright", "off"); }), "\"Bright\" is covered by the alert \"Sure?\"");
  EXPECT_EQ(refusal([&] { phone.paneBack(); }), "\"Settings\" is covered by the alert \"Sure?\"");
  EXPECT_EQ(value("Bright"), "on");
  phone.pressCell("Yes");
  EXPECT_FALSE(phone.pane().alert);
  EXPECT_EQ(posts(), Strings{"com.example.pane.sure"});
  phone.setCell("Bright", "off");
}

TEST_P(SettingsApplication, WhatCannotBeUsedIsRefused) {
  phone.openPane("Test");
  const auto before = nlohmann::json(phone.pane().cells);
  EXPECT_EQ(refusal([&] { phone.setCell("Locked", "on"); }), "\"Locked\" cannot be used now");
  EXPECT_EQ(refusal([&] { phone.setCell("Bright", "yes"); }), "\"Bright\" is a switch: neither on nor off: yes");
  EXPECT_EQ(refusal([&] { phone.setCell("Press", "on"); }), "\"Press\" has nothing to set; it can be pressed");
  EXPECT_EQ(refusal([&] { phone.pressCell("Bright"); }), "\"Bright\" is not pressed but set");
  EXPECT_TRUE(refusal([&] { phone.setCell("Dark", "on"); }).starts_with("No cell \"Dark\"; there are \"Bright\", "));
  EXPECT_TRUE(refusal([&] { phone.setCell("Looks", "on"); }).starts_with("No cell \"Looks\""));
  EXPECT_EQ(nlohmann::json(phone.pane().cells), before);
  EXPECT_TRUE(posts().empty());
  writeRows({row("PSButtonCell", "Twin"), row("PSButtonCell", "Twin")});
  phone.paneBack().openPane("Test");
  EXPECT_EQ(refusal([&] { phone.pressCell("Twin"); }), "More cells than one are called \"Twin\"");
}

TEST_P(SettingsApplication, ALongListScrollsToTheRowThatIsTouched) {
  std::vector<Json> rows;
  for (int i = 0; i < 60; ++i) {
    rows.push_back(setting("PSSwitchCell", "Switch " + std::to_string(i), "switch" + std::to_string(i)));
  }
  writeRows(rows);
  phone.openPane("Test");
  EXPECT_GT(phone.pane().cell("Switch 59")->frame.y, bounds().height);
  phone.setCell("Switch 59", "on");
  EXPECT_LT(phone.pane().cell("Switch 59")->frame.y, bounds().height);
  EXPECT_LT(phone.pane().cell("Switch 0")->frame.y, 0);
  phone.setCell("Switch 0", "on");
  EXPECT_GT(phone.pane().cell("Switch 0")->frame.y, 0);
}

TEST_P(SettingsApplication, IsMadeOfViewsOfAPhonesMeasures) {
  phone.openPane("Test");
  const sim::PaneOnScreen pane = phone.pane();
  const sim::CellOnScreen& first = *pane.cell("Bright");
  EXPECT_EQ(first.frame.height, 44);
  EXPECT_EQ(first.frame.width, bounds().width);
  EXPECT_EQ(pane.cell("Locked")->frame.y, first.frame.y + 44);
  std::function<const sim::ViewOnScreen*(const std::vector<sim::ViewOnScreen>&, const std::string&)> find =
      [&](const auto& views, const std::string& className) -> const sim::ViewOnScreen* {
    for (const auto& view : views) {
      if (view.className == className) return &view;
      if (const auto* inner = find(view.subviews, className)) return inner;
    }
    return nullptr;
  };
  ASSERT_FALSE(pane.tree.empty());
  const auto* toggle = find(pane.tree[0].views, "UISwitch");
  ASSERT_NE(toggle, nullptr);
  EXPECT_EQ(toggle->frame.width, 51);
  EXPECT_EQ(toggle->frame.height, 31);
  const auto* bar = find(pane.tree[0].views, "UINavigationBar");
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar->frame.y, isOld() ? 20 : 44);
  const auto* table = find(pane.tree[0].views, "UITableView");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->frame.y, bar->frame.y + 44);
  EXPECT_EQ(table->frame.y + table->frame.height, bounds().height);
}

TEST_P(SettingsApplication, AListTakesItsTimeToComeAndToGo) {
  phone.openPane("Test");
  const double before = phone.pane().passed;
  phone.pressCell("Games");
  EXPECT_NEAR(phone.pane().passed, before + 0.35, 1e-9);
  phone.paneBack();
  EXPECT_NEAR(phone.pane().passed, before + 0.7, 1e-9);
}

// Which panes there are

TEST_P(SettingsApplication, EntriesThatMeanNothingArePassedOverWithALine) {
  const auto entry = [](Json changes) {
    Json content = {{"bundle", "TestPane"}, {"cell", "PSLinkCell"}, {"isController", true}, {"label", "Bad"}};
    content.update(changes);
    for (const auto& [key, value] : changes.items()) {
      if (value.is_null()) content.erase(key);
    }
    return Json{{"entry", content}};
  };
  installEntry("NoEntry", {{"bundle", "TestPane"}});
  installEntry("NoDictionary", {{"entry", "TestPane"}});
  installEntry("NoLink", entry({{"cell", "PSSwitchCell"}}));
  installEntry("NoBundle", entry({{"bundle", nullptr}}));
  installEntry("NoController", entry({{"isController", nullptr}}));
  installEntry("By its file", entry({{"label", nullptr}}));
  installEntry("Deep/Inner", entry({{"label", "Another"}}));
  sim::writeFile(phone.path("/Library/PreferenceLoader/Preferences/Damaged.plist"), "<plist><dict><key>entry");
  sim::writeFile(phone.path("/Library/PreferenceLoader/Preferences/Readme.txt"), "no entry at all");
  phone.openPane("Test").paneBack();
  EXPECT_EQ(phone.pane().labels(), (Strings{"Another", "By its file", "Test"}));
  const std::string log = phone.paneOutput();
  for (const char* line :
       {"NoEntry.plist is passed over: it has no \"entry\"", "NoDictionary.plist is passed over: it has no \"entry\"",
        "NoLink.plist is passed over: its \"cell\" is no PSLinkCell",
        "NoBundle.plist is passed over: it names no \"bundle\"",
        "NoController.plist is passed over: its bundle brings no controller",
        "Damaged.plist is passed over: it is no property list"}) {
    EXPECT_NE(log.find(line), std::string::npos) << line << "\n" << log;
  }
  EXPECT_EQ(log.find("Readme"), std::string::npos);
}

TEST_P(SettingsApplication, WithoutPanesItsFirstListIsEmpty) {
  fs::remove_all(phone.path("/Library/PreferenceLoader"));
  EXPECT_EQ(refusal([&] { phone.openPane("Test"); }), "No cell \"Test\"; there are none");
  EXPECT_TRUE(phone.paneIsOpen());
  EXPECT_TRUE(phone.pane().labels().empty());
}

TEST_P(SettingsApplication, ABundleThatCannotBeOpenedSaysSoInItsRow) {
  installPane("NoImage", "No image", "", "TestPaneController");
  installPane("NoClass", "No class", "test-pane.so", "NoSuchController");
  installPane("NoList", "No list", "test-pane.so", "TestObject");
  installPane("Foreign", "Foreign", "incomplete-pane.so", "TestPaneController");
  installPane("Damaged", "Damaged", "", "TestPaneController");
  sim::writeFile(bundle("Damaged") / "Damaged", std::string("\x7f") + "ELF and then nothing");
  installPane("Missing", "Missing", "", "X");
  fs::remove_all(bundle("Missing"));
  installPane("NoInfo", "No info", "", "X");
  fs::remove(bundle("NoInfo") / "Info.plist");
  const std::pair<const char*, const char*> reasons[] = {
      {"No image", "No such file"},
      {"No class", "NoClass.bundle has no class NoSuchController"},
      {"No list", "TestObject is no controller of a pane"},
      {"Foreign", "functionOfAnotherSystem"},
      {"Damaged", "Damaged"},
      {"Missing", "there is no /Library/PreferenceBundles/Missing.bundle"},
      {"No info", "has no Info.plist that can be read"},
  };
  for (const auto& [label, reason] : reasons) {
    phone.openPane(label);
    EXPECT_EQ(phone.pane().title, "Settings") << label;
    EXPECT_TRUE(value(label).starts_with("cannot be opened: ")) << value(label);
    EXPECT_NE(value(label).find(reason), std::string::npos) << value(label);
    EXPECT_NE(phone.paneOutput().find(value(label)), std::string::npos) << phone.paneOutput();
  }
  phone.openPane("Test");
  EXPECT_EQ(phone.pane().title, "Test Pane");
}

TEST_P(SettingsApplication, ABundlesImageIsMappedWhenItsRowIsTapped) {
  phone.openPane("Test").paneBack();
  installPane("Later", "Later on", "test-pane.so", "TestPaneController");
  EXPECT_THROW(phone.askPane("class", {{"name", "NoSuchController"}}), sim::BadInput);
  phone.closePane();
  fs::remove_all(phone.path("/Library/PreferenceLoader/Preferences/TestPane.plist"));
  installPane("Object", "Object", "", "TestPaneController");
  phone.openPane("Object");
  EXPECT_THROW(phone.askPane("class", {{"name", "TestPaneController"}}), sim::BadInput);
  phone.openPane("Later on");
  EXPECT_EQ(phone.askPane("class", {{"name", "TestPaneController"}}).at("superclass"), "PSListController");
}

TEST_P(SettingsApplication, APaneWithoutRowsIsEmpty) {
  fs::remove(bundle("TestPane") / "Root.plist");
  phone.openPane("Test");
  EXPECT_TRUE(phone.pane().cells.empty());
  EXPECT_EQ(phone.pane().title, "Test") << "its row's";
  sim::writeFile(bundle("TestPane") / "Root.plist", "damaged");
  phone.paneBack().openPane("Test");
  EXPECT_TRUE(phone.pane().cells.empty());
}

// Two processes

TEST_P(SettingsApplication, IsStartedByItsFirstPaneAndEndsWhenItIsClosed) {
  EXPECT_FALSE(phone.paneIsOpen());
  EXPECT_EQ(refusal([&] { phone.pane(); }), "the settings application is not open");
  EXPECT_EQ(refusal([&] { phone.setCell("Bright", "on"); }), "the settings application is not open");
  phone.closePane();
  phone.openPane("Test").setCell("Bright", "off").closePane();
  EXPECT_FALSE(phone.paneIsOpen());
  EXPECT_EQ(refusal([&] { phone.pane(); }), "the settings application is not open");
  phone.openPane("Test");
  EXPECT_EQ(value("Bright"), "off");
}

TEST_P(SettingsApplication, ARespringAndACrashOfTheHomeScreenLeaveIt) {
  phone.openPane("Test").setCell("Size", "30");
  phone.respring();
  EXPECT_EQ(phone.pane().title, "Test Pane");
  phone.setCell("Bright", "off").crash();
  EXPECT_EQ(phone.pane().title, "Test Pane");
  EXPECT_EQ(value("Bright"), "off");
  phone.setCell("Bright", "on");
  EXPECT_EQ(phone.ask("darwin-posts").at("entries"), nlohmann::json{domain + ".changed"})
      << "the home screen that runs now has heard of it";
}

TEST_P(SettingsApplication, ItsCrashLeavesTheHomeScreen) {
  phone.openPane("Test");
  try {
    phone.pressCell("Raise");
    ADD_FAILURE() << "an unknown selector raises";
  } catch (const sim::SettingsDied& died) {
    EXPECT_NE(std::string(died.what()).find("noSuchMessage"), std::string::npos) << died.what();
    EXPECT_TRUE(std::string(died.what()).starts_with("the settings application ended")) << died.what();
  }
  EXPECT_FALSE(phone.paneIsOpen());
  EXPECT_NE(phone.screen().icon("com.example.notes"), nullptr);
  phone.openPane("Test").crashPane();
  EXPECT_FALSE(phone.paneIsOpen());
  phone.openPane("Test");
  EXPECT_EQ(phone.pane().title, "Test Pane");
}

TEST_P(SettingsApplication, BothProcessesHaveOneClock) {
  phone.boot();
  phone.advance(100);
  phone.openPane("Test");
  EXPECT_NEAR(phone.pane().passed, phone.screen().passed, 1e-9);
  EXPECT_NEAR(phone.askPane("now").get<double>(), phone.now(), 1e-3);
  phone.pressCell("Games");
  EXPECT_NEAR(phone.pane().passed, phone.screen().passed, 1e-9);
  phone.advance(1000);
  EXPECT_NEAR(phone.pane().passed, phone.screen().passed, 1e-9);
  phone.swipeUp("com.example.notes").tap("Cancel");
  EXPECT_NEAR(phone.pane().passed, phone.screen().passed, 1e-9);
  phone.setClock(2e9);
  EXPECT_NEAR(phone.askPane("now").get<double>(), 2e9, 1e-3);
  EXPECT_NEAR(phone.now(), 2e9, 1e-3);
  phone.respring();
  EXPECT_NEAR(phone.pane().passed, phone.screen().passed, 1e-9);
  EXPECT_NEAR(phone.askPane("now").get<double>(), phone.now(), 1e-3);
}

TEST_P(SettingsApplication, APostOfEitherProcessReachesTheOther) {
  phone.openPane("Test").setCell("Bright", "off");
  EXPECT_EQ(posts(), Strings{domain + ".changed"});
  phone.settings({"hideLabel=true"});
  const auto inPane = [&] { return phone.askPane("darwin-posts").at("entries").get<Strings>(); };
  EXPECT_EQ(inPane(), (Strings{domain + ".changed", "com.morvanel.sprigdial.preferencechanged"}));
  phone.post("com.example.from.outside");
  EXPECT_EQ(inPane().back(), "com.example.from.outside");
  EXPECT_EQ(posts().back(), "com.example.from.outside");
  if (isOld()) return;
  // The home screen's own post.
  phone.rename("com.example.notes", "Jottings");
  EXPECT_EQ(inPane().back(), "com.morvanel.sprigdial.renamelable");
}

TEST_P(SettingsApplication, APostArrivesAtTheTimeAtWhichItWasMade) {
  phone.openPane("Test").pressCell("Later");
  phone.advance(4.5);
  EXPECT_TRUE(posts().empty());
  phone.advance(1);
  EXPECT_EQ(posts(), Strings{"com.example.pane.pressed"});
}

TEST_P(SettingsApplication, BothProcessesWriteThroughTheOneDaemon) {
  phone.openPane("Test").setCell("Size", "30");
  phone.ask("set-preferences", {{"domain", domain}, {"values", {{"name", "From the home screen"}}}});
  phone.paneBack().openPane("Test");
  EXPECT_EQ(value("Name"), "From the home screen");
  EXPECT_EQ(value("Size"), "30");
  const fs::path file = phone.path("/var/mobile/Library/Preferences/" + domain + ".plist");
  EXPECT_FALSE(fs::exists(file));
  phone.flush();
  EXPECT_EQ(sim::PropertyList::read(file).value_or(sim::PropertyList()).readable(), held());
}

TEST_P(SettingsApplication, WhatItChangedIsWrittenInTimeAfterItHasGone) {
  const fs::path file = phone.path("/var/mobile/Library/Preferences/" + domain + ".plist");
  phone.openPane("Test").setCell("Bright", "off").closePane();
  phone.advance(9);
  EXPECT_FALSE(fs::exists(file));
  phone.advance(2);
  EXPECT_TRUE(fs::exists(file));
  phone.openPane("Test").setCell("Bright", "on").crashPane();
  phone.advance(11);
  EXPECT_EQ(sim::PropertyList::read(file).value_or(sim::PropertyList()).readable(), "{\n  \"bright\": true\n}");
}

TEST_P(SettingsApplication, APowerCutEndsItToo) {
  phone.openPane("Test").setCell("Bright", "off");
  phone.killDuring("advance", {{"seconds", 0}}, [] {});
  EXPECT_FALSE(phone.paneIsOpen());
}

TEST_P(SettingsApplication, EndsWithThePhone) {
  phone.openPane("Test");
  phone.shutDown();
  EXPECT_FALSE(phone.paneIsOpen());
  EXPECT_FALSE(phone.booted());
}

TEST_P(SettingsApplication, ShowsApplicationsByTheirNames) {
  writeRows({row("PSTitleValueCell", "First", {{"get", "applicationName:"}, {"application", "com.example.notes"}}),
             row("PSTitleValueCell", "Second", {{"get", "applicationName:"}, {"application", "com.example.nobody"}})});
  phone.openPane("Test");
  EXPECT_EQ(value("First"), "Notes");
  EXPECT_EQ(value("Second"), "");
}

TEST_P(SettingsApplication, ARowMayNameItsOwnSetter) {
  writeRows({row("PSSwitchCell", "Own", {{"set", "changed:row:"}, {"get", "applicationName:"}})});
  phone.openPane("Test").setCell("Own", "on");
  EXPECT_EQ(posts(), Strings{"com.example.pane.Own"});
  EXPECT_FALSE(phone.preferences(domain));
}

TEST_P(SettingsApplication, LeavesNothingOfAListBehind) {
  phone.openPane("Test").pressCell("Games").paneBack();
  const auto live = [&] { return phone.askPane("live").get<std::map<std::string, long>>(); };
  const auto before = live();
  phone.pressCell("Games").deleteCell("Go").paneBack().pressCell("Ask").pressCell("No");
  phone.setCell("Bright", "off").setCell("Size", "30");
  EXPECT_EQ(live(), before);
}
