#include "simulator/frameworks/uikit/UISegmentedControl.hpp"

#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/runtime/exception.hpp"

namespace sim {

UISegmentedControl* UISegmentedControl::initWithItems(id titles) {
  auto* self = send<UISegmentedControl*>(this, "initWithFrame:"_sel, CGRect{{}, {0, height}});
  for (id title : elements(titles)) self->titles_.emplace_back(title);
  return self;
}

NSUInteger UISegmentedControl::numberOfSegments() { return titles_.size(); }

id UISegmentedControl::titleForSegment(NSUInteger index) {
  if (index >= titles_.size())
    raiseException("NSRangeException", "The segmented control has no segment " + std::to_string(index));
  return titles_[index];
}

void UISegmentedControl::setSelectedSegment(NSInteger index) {
  if (index != none) titleForSegment(static_cast<NSUInteger>(index));
  selectedSegmentIndex = index;
}

void UISegmentedControl::layoutSubviews() {
  removeSubviews(this);
  const CGSize segment{frame.size.width / static_cast<CGFloat>(titles_.size()), frame.size.height};
  CGPoint origin;
  for (const auto& title : titles_) {
    addLabel(this, {origin, segment}, title, {.fontSize = 13});
    origin.x += segment.width;
  }
}

void defineUISegmentedControl() {
  using Self = UISegmentedControl;
  ClassBuilder<Self, UIControl>("UISegmentedControl", "UIControl")
      .method<&Self::initWithItems>("initWithItems:")
      .method<&Self::numberOfSegments>("numberOfSegments")
      .method<&Self::titleForSegment>("titleForSegmentAtIndex:")
      .getter<&Self::selectedSegmentIndex>("selectedSegmentIndex")
      .method<&Self::setSelectedSegment>("setSelectedSegmentIndex:")
      .method<&Self::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
