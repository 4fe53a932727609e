#include "simulator/homescreen/common/SBIconListView.hpp"

namespace sim {

SBIconView* SBIconListView::iconViewForIcon(id icon) {
  for (SBIconView* view : iconViews)
    if (view->icon.get() == icon) return view;
  return nullptr;
}

void SBIconListView::arrange(std::size_t columns, CGPoint first, CGSize pitch) {
  const auto arranged = iconViews;
  for (std::size_t i = 0; i < arranged.size(); ++i) {
    SBIconView* view = arranged[i];
    const std::size_t column = i % columns;
    const std::size_t row = i / columns;
    const CGPoint origin{first.x + pitch.width * static_cast<CGFloat>(column),
                         first.y + pitch.height * static_cast<CGFloat>(row)};
    send(view, "setFrame:"_sel, CGRect{origin, view->frame.size});
    send(view, "layoutSubviews"_sel);
  }
}

void defineSBIconListView() {
  ClassBuilder<SBIconListView, UIView>("SBIconListView", "UIView")
      .method<&SBIconListView::iconViewForIcon>("iconViewForIcon:")
      .add();
  ClassBuilder<SBIconListView, SBIconListView>("SBDockIconListView", "SBIconListView").add();
}

}  // namespace sim
