#include "simulator/homescreen/common/SBIconListView.hpp"

namespace sim {
namespace {

constexpr std::size_t columns = 4;
constexpr CGFloat margin = 27, columnWidth = 87, rowHeight = 88;

Ref<SBIconView> makeIconView() {
  id allocated = send<id>("SBIconView"_cls, "alloc"_sel);
  auto* view = home().generation == Generation::old
                   ? send<SBIconView*>(allocated, "initWithContentType:"_sel, NSUInteger{0})
                   : send<SBIconView*>(allocated, "initWithConfigurationOptions:"_sel, NSUInteger{0});
  return Ref<SBIconView>::adopt(view);
}

}  // namespace

SBIconView* SBIconListView::iconViewForIcon(id icon) {
  const auto entry = iconViews.find(icon);
  return entry != iconViews.end() ? entry->second.get() : nullptr;
}

void SBIconListView::show(SBIcon* icon) {
  auto view = makeIconView();
  send(view, "setIcon:"_sel, icon);
  send(this, "addSubview:"_sel, view.get());
  iconViews[icon] = view;
}

void SBIconListView::remove(SBIcon* icon) {
  send(iconViewForIcon(icon), "removeFromSuperview"_sel);
  iconViews.erase(icon);
}

void SBIconListView::arrange(const std::vector<Ref<SBIcon>>& icons) {
  for (std::size_t i = 0; i < icons.size(); ++i) {
    SBIconView* view = iconViewForIcon(icons[i]);
    const std::size_t column = i % columns;
    const std::size_t row = i / columns;
    const CGPoint origin{margin + columnWidth * static_cast<CGFloat>(column),
                         margin + rowHeight * static_cast<CGFloat>(row)};
    send(view, "setFrame:"_sel, CGRect{origin, view->frame.size});
    send(view, "layoutSubviews"_sel);
  }
}

void defineSBIconListView() {
  ClassBuilder<SBIconListView, UIView>("SBIconListView", "UIView")
      .method<&SBIconListView::iconViewForIcon>("iconViewForIcon:")
      .add();
}

}  // namespace sim
