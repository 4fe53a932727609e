#include "simulator/frameworks/uikit/UIScrollView.hpp"

#include <algorithm>

namespace sim {
namespace {

// The offset along one axis that shows the part from `start` on.
CGFloat showing(CGFloat start, CGFloat length, CGFloat offset, CGFloat visible) {
  if (start < offset) return start;
  return std::max(offset, start + length - visible);
}

}  // namespace

void scrollToVisible(UIView* view) {
  CGRect part = view->frame;
  for (UIView* outer = view->superview; outer != nullptr; outer = outer->superview) {
    if (isKind(outer, "UIScrollView"_cls)) {
      const CGSize visible = outer->frame.size;
      const CGPoint offset = outer->scrolled;
      send(outer, "setContentOffset:"_sel,
           CGPoint{showing(part.origin.x, part.size.width, offset.x, visible.width),
                   showing(part.origin.y, part.size.height, offset.y, visible.height)});
    }
    part.origin = part.origin - outer->scrolled + outer->frame.origin;
  }
}

void defineUIScrollView() {
  ClassBuilder<UIScrollView, UIView>("UIScrollView", "UIView")
      .property<&UIScrollView::contentSize>("contentSize")
      .getter<&UIView::scrolled>("contentOffset")
      .method<&UIScrollView::setContentOffset>("setContentOffset:")
      .add();
}

}  // namespace sim
