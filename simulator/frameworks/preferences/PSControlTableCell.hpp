#pragma once

#include "simulator/frameworks/preferences/PSTableCell.hpp"
#include "simulator/frameworks/uikit/UIControl.hpp"

namespace sim {

/// A row with a control, which a person changes in place. Subclasses make the control and translate its value.
struct PSControlTableCell : PSTableCell {
  Ref<UIControl> control;

  PSTableCell* initWithStyle(NSInteger style, id reuseIdentifier, PSSpecifier* row);
  void refresh(PSSpecifier* row);
  /// A person has changed the control: the row's target is told.
  void controlChanged(id control);
  void layoutSubviews();
};

void definePSControlTableCell();

}  // namespace sim
