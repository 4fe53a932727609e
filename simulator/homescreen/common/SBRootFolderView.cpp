#include "simulator/homescreen/common/SBRootFolderView.hpp"

#include <algorithm>

#include "simulator/homescreen/common/measures.hpp"
#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim {
namespace {

Ref<SBIconView> makeIconView(bool withLabel) {
  auto* view = platformActions().initIconView(send<id>("SBIconView"_cls, "alloc"_sel));
  if (!withLabel) view->removeLabel();
  return Ref<SBIconView>::adopt(view);
}

}  // namespace

SBRootFolderView* SBRootFolderView::initWithFrame(CGRect initial) {
  auto* self = sendSuper<SBRootFolderView*>(this, "UIView"_cls, "initWithFrame:"_sel, initial);
  if (self == nullptr) return nullptr;
  self->scrollView = addView<UIScrollView>(self, "UIScrollView"_cls, {});
  self->pageControl = addView<UIPageControl>(self, "UIPageControl"_cls, {});
  self->dock = addView<SBIconListView>(self, "SBDockIconListView"_cls, {});
  self->dock->backgroundColor = send<UIColor*>("UIColor"_cls, "colorWithWhite:alpha:"_sel, 1.0, 0.4);
  return self;
}

SBIconView* SBRootFolderView::iconViewForIcon(id icon) {
  const auto entry = iconViews.find(icon);
  return entry != iconViews.end() ? entry->second.get() : nullptr;
}

void SBRootFolderView::show(SBIcon* icon, bool inDock) {
  auto view = makeIconView(!inDock);
  send(view, "setIcon:"_sel, icon);
  iconViews[icon] = view;
}

void SBRootFolderView::remove(SBIcon* icon) {
  send(iconViewForIcon(icon), "removeFromSuperview"_sel);
  iconViews.erase(icon);
}

void SBRootFolderView::distribute(const std::vector<Ref<SBIcon>>& icons) {
  const std::size_t room = grid().columns * grid().rows;
  std::vector<Ref<SBIconView>> docked, paged;
  for (SBIcon* icon : icons) {
    SBIconView* view = iconViewForIcon(icon);
    (view->labelView ? paged : docked).emplace_back(view);
  }
  const auto needed = std::max<std::size_t>((paged.size() + room - 1) / room, 1);
  for (std::size_t page = needed; page < pages.size(); ++page) pages[page]->removeFromSuperview();
  pages.resize(std::min(pages.size(), needed));
  while (pages.size() < needed) pages.emplace_back(addView<SBIconListView>(scrollView, "SBIconListView"_cls, {}));
  const auto fill = [](SBIconListView* list, std::vector<Ref<SBIconView>> views) {
    for (SBIconView* view : views)
      if (view->superview != list) list->addSubview(view);
    list->iconViews = std::move(views);
  };
  fill(dock, docked);
  for (std::size_t page = 0; page < needed; ++page) {
    const auto first = paged.begin() + static_cast<std::ptrdiff_t>(page * room);
    const auto left = static_cast<std::size_t>(paged.end() - first);
    fill(pages[page], {first, first + static_cast<std::ptrdiff_t>(std::min(room, left))});
  }
}

void SBRootFolderView::arrange(const std::vector<Ref<SBIcon>>& icons) {
  const Grid& places = grid();
  const CGSize size = screenBounds().size;
  distribute(icons);
  frame = scrollView->frame = {{}, size};
  scrollView->contentSize = {size.width * static_cast<CGFloat>(pages.size()), size.height};
  constexpr CGFloat dotsHeight = 20;
  pageControl->frame = {{0, places.pageDots - dotsHeight / 2}, {size.width, dotsHeight}};
  pageControl->numberOfPages = static_cast<NSInteger>(pages.size());
  turnTo(currentPage());
  dock->frame = places.dock;
  CGFloat left = 0;
  const auto shown = pages;
  for (SBIconListView* page : shown) {
    page->frame = {{left, 0}, size};
    left += size.width;
    page->arrange(places.columns, places.first, places.pitch);
  }
  const auto gaps = static_cast<CGFloat>(measures().dockColumns - 1);
  const CGFloat pitch = (places.dock.size.width - 2 * places.firstInDock.x - measures().icon) / gaps;
  dock->arrange(measures().dockColumns, places.firstInDock, {pitch, 0});
}

std::optional<std::size_t> SBRootFolderView::pageOf(SBIconView* view) const {
  for (std::size_t page = 0; page < pages.size(); ++page)
    if (view->superview == pages[page].get()) return page;
  return std::nullopt;
}

void SBRootFolderView::turnTo(std::size_t page) {
  const std::size_t shown = std::min(page, pages.size() - 1);
  pageControl->currentPage = static_cast<NSInteger>(shown);
  scrollView->setContentOffset({frame.size.width * static_cast<CGFloat>(shown), 0});
}

void defineSBRootFolderView() {
  ClassBuilder<SBRootFolderView, UIView>("SBRootFolderView", "UIView")
      .method<&SBRootFolderView::initWithFrame>("initWithFrame:")
      .method<&SBRootFolderView::iconViewForIcon>("iconViewForIcon:")
      .add();
}

}  // namespace sim
