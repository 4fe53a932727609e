#pragma once

#include "simulator/frameworks/preferences/PSControlTableCell.hpp"
#include "simulator/frameworks/uikit/UISlider.hpp"

namespace sim {

/// A row that is a slider from the row's `min` to its `max`, with the number beside it if `showValue` says so; its name
/// is not seen.
struct PSSliderTableCell : PSControlTableCell {
  UISlider* newControl();
  id controlValue();
  void setValue(id value);
  void controlChanged(id control);
  void layoutSubviews();

 private:
  void showValue();
};

void definePSSliderTableCell();

}  // namespace sim
