// The settings application: its panes, what a person does with them, and how it lives beside the home screen.
#include <chrono>

#include "tests/support/phone.hpp"
#include "tests/support/places.hpp"

namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const std::string domain = "com.example.pane";

/// A row of the test's own pane, as its property list has it.
Json row(const std::string& cell, const std::string& label, Json more = Json::object()) {
  Json item = {{"cell", cell}, {"label", label}};
  item.update(more);
  return item;
}

Json setting(const std::string& cell, const std::string& label, const std::string& key, Json more = Json::object()) {
  Json item = row(cell, label, {{"key", key}, {"defaults", domain}, {"PostNotification", domain + ".changed"}});
  item.update(more);
  return item;
}

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
        setting("PSTitleValueCell", "Shown", "side", {{"validValues", {1}}, {"validTitles", {"To the right"}}}),
        row("PSStaticTextCell", "Only a text"),
        row("PSLinkCell", "Games", {{"detail", "TestGamesController"}}),
        row("PSLinkCell", "Nowhere", {{"detail", "NoSuchController"}}),
        row("PSButtonCell", "Press", {{"action", "pressed:"}}),
        row("PSButtonCell", "Later", {{"action", "later:"}}),
        row("PSButtonCell", "Ask", {{"action", "ask:"}}),
        row("PSButtonCell", "Raise", {{"action", "raise:"}}),
    });
  }

  fs::path bundle(const std::string& name) const {
    return phone.path("/Library/PreferenceBundles/" + name + ".bundle");
  }
  void writeRows(const Json& items) const {
    sim::PropertyList({{"title", "Test Pane"}, {"items", items}}).write(bundle("TestPane") / "Root.plist");
  }
  void installEntry(const std::string& name, const Json& content) const {
    const fs::path folder = phone.path("/Library/PreferenceLoader/Preferences");
    fs::create_directories(folder);
    sim::PropertyList(content).write(folder / (name + ".plist"));
  }
  void installPane(const std::string& name, const std::string& label, const std::string& image,
                   const std::string& principalClass) const {
    fs::create_directories(bundle(name));
    sim::PropertyList({{"CFBundleExecutable", name}, {"NSPrincipalClass", principalClass}})
        .write(bundle(name) / "Info.plist");
    if (!image.empty()) fs::copy_file(fs::path(test::buildFolder) / image, bundle(name) / name);
    installEntry(name,
                 {{"entry", {{"bundle", name}, {"cell", "PSLinkCell"}, {"isController", true}, {"label", label}}}});
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
