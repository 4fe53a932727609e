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
    const auto column = static_cast<CGFloat>(i % columns);
    const auto row = static_cast<CGFloat>(i / columns);
    const CGPoint origin{first.x + pitch.width * column, first.y + pitch.height * row};
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
