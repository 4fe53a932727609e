#pragma once

#include "simulator/frameworks/preferences/PSControlTableCell.hpp"
#include "simulator/frameworks/uikit/UISegmentedControl.hpp"

namespace sim {

/// A row that is a segmented control, one segment for each of the values; its name is not seen.
struct PSSegmentTableCell : PSControlTableCell {
  UISegmentedControl* newControl();
  id controlValue();
  void setValue(id value);
  void layoutSubviews();
};

void definePSSegmentTableCell();

}  // namespace sim
