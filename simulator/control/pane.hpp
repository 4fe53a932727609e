// What a person sees of the settings application, as one value.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/control/screen.hpp"

namespace sim {

/// A row of a list of settings, or the head of a group of rows.
struct CellOnScreen {
  /// "group", "link", "link list", "item", "value", "slider", "switch", "text", "edit", "segment" or "button".
  std::string kind;
  /// Of a group what stands above it; empty for none. Of a segment or a slider it is read out, and not seen.
  std::string label;
  /// Of a switch "on" or "off", of a segment the title that is selected, of a slider its number, of others what stands
  /// behind the label; empty for none.
  std::string value;
  std::string footer;                ///< of a group what stands below it; empty for none
  bool enabled = true;               ///< whether it can be used
  bool deletable = false;            ///< whether it can be swiped away
  std::vector<std::string> choices;  ///< of a segment
  double least = 0, most = 0;        ///< of a slider
  Frame frame;                       ///< on the screen; outside of it where the list has to be scrolled
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(CellOnScreen, kind, label, value, footer, enabled, deletable, choices, least,
                                   most, frame)

/// Everything a person sees of it.
struct PaneOnScreen {
  std::string title;
  std::optional<std::string> back;    ///< the title of the way back; none in the first list
  std::optional<std::string> button;  ///< the button at the right of the title
  std::vector<CellOnScreen> cells;    ///< in order
  std::optional<AlertOnScreen> alert;
  double passed = 0;                 ///< the time that has passed, in seconds; a clock that nobody sets
  std::vector<WindowOnScreen> tree;  ///< every window, bottom first

  /// The row of that label, or null. Groups are no rows.
  const CellOnScreen* cell(std::string_view label) const {
    for (const CellOnScreen& candidate : cells) {
      if (candidate.kind != "group" && candidate.label == label) return &candidate;
    }
    return nullptr;
  }
  /// What the rows are called, in order.
  std::vector<std::string> labels() const {
    std::vector<std::string> all;
    for (const CellOnScreen& each : cells) {
      if (each.kind != "group") all.push_back(each.label);
    }
    return all;
  }
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PaneOnScreen, title, back, button, cells, alert, passed, tree)

}  // namespace sim
