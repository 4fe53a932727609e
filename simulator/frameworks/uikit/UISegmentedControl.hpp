#pragma once

#include "simulator/frameworks/uikit/UIControl.hpp"

namespace sim {

/// Titles beside one another, one of which may be selected.
struct UISegmentedControl : UIControl {
  static constexpr NSInteger none = -1;
  static constexpr CGFloat height = 29;
  NSInteger selectedSegmentIndex = none;

  /// A control with these texts.
  UISegmentedControl* initWithItems(id titles);
  NSUInteger numberOfSegments();
  /// Raises for a segment that there is not.
  id titleForSegment(NSUInteger index);
  void setSelectedSegment(NSInteger index);
  void layoutSubviews();

 private:
  std::vector<Ref<objc_object>> titles_;
};

void defineUISegmentedControl();

}  // namespace sim
