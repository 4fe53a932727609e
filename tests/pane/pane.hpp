// The settings pane on a phone, and what a person sees of its doing on the home screen.
#pragma once

#include "tests/support/phone.hpp"

namespace test {

inline const std::string app = "com.example.test";
inline const std::string other = "com.example.notes";
inline const std::string domain = "com.morvanel.sprigdial";

/// Tells whether swiping on the application's icon opens its menu, and closes it again.
inline bool opensAMenu(Phone& phone, const std::vector<sim::TouchSample>& samples) {
  phone.advance(1).swipe(app, samples);
  const bool opened = phone.showsAlert();
  if (opened) phone.tap("Cancel");
  return opened;
}
/// What the application's menu offers; nothing when it does not open.
inline std::vector<std::string> menuOf(Phone& phone) {
  phone.advance(1).swipeUp(app);
  if (!phone.showsAlert()) return {};
  const auto titles = phone.buttons();
  phone.tap("Cancel");
  return titles;
}

/// Pane tests run on both generations; the pane is opened at its first use.
class Pane : public Generations {
 protected:
  void SetUp() override { phone.install({}); }

  /// Opens the pane's first page anew.
  Phone& open() {
    phone.openPane("Sprigdial");
    return phone;
  }
  /// Opens one of its lists.
  Phone& openList(const std::string& name) {
    open().pressCell(name);
    return phone;
  }
  /// What a cell of the shown page shows.
  std::string shown(const std::string& label) {
    const auto page = phone.pane();
    const auto* cell = page.cell(label);
    return cell != nullptr ? cell->value : "no such cell";
  }
  std::vector<std::string> rows() { return phone.pane().labels(); }
  std::string footer() {
    const auto page = phone.pane();
    return page.cells.empty() ? "nothing" : page.cells.front().footer;
  }

  std::filesystem::path file() const { return phone.settingsFile(); }
  /// The settings file; null when it holds no property list.
  nlohmann::ordered_json stored() const {
    const auto content = sim::PropertyList::read(file());
    return content ? content->value() : nullptr;
  }
  /// What the preferences daemon holds of the settings.
  nlohmann::ordered_json held() {
    const auto values = phone.preferences(domain);
    return values ? values->value() : nullptr;
  }
  std::string label(const std::string& id = app) { return phone.icon(id).label; }
  bool labelsAreHidden() {
    const auto icons = phone.screen().icons;
    const auto hidden = std::count_if(icons.begin(), icons.end(), [](const auto& icon) { return icon.labelHidden; });
    EXPECT_TRUE(hidden == 0 || hidden == std::ssize(icons)) << hidden << " of " << icons.size();
    return hidden != 0;
  }
};

}  // namespace test
