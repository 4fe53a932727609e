// The home screen itself: its pages of icons, the dots that tell which one is shown, and the dock.
#pragma once

#include <map>

#include "simulator/frameworks/uikit/UIPageControl.hpp"
#include "simulator/frameworks/uikit/UIScrollView.hpp"
#include "simulator/homescreen/common/SBIconListView.hpp"

namespace sim {

struct SBRootFolderView : UIView {
  Ref<UIScrollView> scrollView;  ///< holds the pages side by side
  std::vector<Ref<SBIconListView>> pages;
  Ref<SBIconListView> dock;
  Ref<UIPageControl> pageControl;
  std::map<id, Ref<SBIconView>> iconViews;  ///< all of them, by icon

  SBRootFolderView* initWithFrame(CGRect frame);
  /// Nil for an icon that is not on the home screen.
  SBIconView* iconViewForIcon(id icon);

  /// Makes the icon's view; the next `arrange` gives it its place.
  void show(SBIcon* icon, bool inDock);
  void remove(SBIcon* icon);
  /// Fills the dock and the pages in the order of the icons, and lays everything out as the device is held.
  void arrange(const std::vector<Ref<SBIcon>>& icons);

  std::size_t currentPage() const { return static_cast<std::size_t>(pageControl->currentPage); }
  /// The page that the icon's view stands on, counted from 0; none in the dock.
  std::optional<std::size_t> pageOf(SBIconView* view) const;
  /// Turns to that page, or to the last if there are fewer.
  void turnTo(std::size_t page);

 private:
  void distribute(const std::vector<Ref<SBIcon>>& icons);
};

void defineSBRootFolderView();

}  // namespace sim
