#pragma once

#include "simulator/frameworks/preferences/PSControlTableCell.hpp"
#include "simulator/frameworks/uikit/UISwitch.hpp"

namespace sim {

/// A row with a switch.
struct PSSwitchTableCell : PSControlTableCell {
  UISwitch* newControl();
  id controlValue();
  void setValue(id value);
};

void definePSSwitchTableCell();

}  // namespace sim
