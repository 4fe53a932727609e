#include "simulator/frameworks/uikit/UITableViewHeaderFooterView.hpp"

namespace sim {

CGFloat addHeaderFooter(UIView* superview, CGFloat y, id text, bool isFooter) {
  constexpr CGFloat margin = 16, gap = 18, near = 7, fontSize = 13;
  const CGFloat width = superview->frame.size.width;
  const CGFloat above = isFooter ? near : gap, below = isFooter ? gap : near;
  const CGFloat lines = text != nullptr ? textHeight(text, fontSize, width - 2 * margin) : 0;
  const CGFloat height = text != nullptr ? above + lines + below : gap;
  auto* view =
      addView<UITableViewHeaderFooterView>(superview, "UITableViewHeaderFooterView"_cls, {{0, y}, {width, height}});
  view->isFooter = isFooter;
  if (text != nullptr)
    view->textLabel =
        addLabel(view, {{margin, above}, {width - 2 * margin, lines}}, text, {.fontSize = fontSize, .alignment = 0});
  return y + height;
}

void defineUITableViewHeaderFooterView() {
  ClassBuilder<UITableViewHeaderFooterView, UIView>("UITableViewHeaderFooterView", "UIView").add();
}

}  // namespace sim
