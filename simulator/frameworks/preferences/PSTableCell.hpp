#pragma once

#include "simulator/frameworks/preferences/PSSpecifier.hpp"
#include "simulator/frameworks/uikit/UITableViewCell.hpp"

namespace sim {

/// A row of a list of settings. Its name stands in it, but where a segmented control or a slider takes all of the room.
struct PSTableCell : UITableViewCell {
  Ref<PSSpecifier> specifier;

  PSTableCell* initWithStyle(NSInteger style, id reuseIdentifier, PSSpecifier* row);
  /// Shows the row as it is now: its name, its value, and whether it can be used.
  void refresh(PSSpecifier* row);
  void layoutSubviews();
  bool cellEnabled() const { return userInteractionEnabled; }
};

/// A new cell for the row, of the class that its type, or its own `cellClass`, stands for.
Ref<PSTableCell> makeTableCell(PSSpecifier* row);

void definePSTableCell();

}  // namespace sim
