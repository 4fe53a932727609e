// A place of the home screen that icons' views stand in, row by row: a page, or the dock.
#pragma once

#include "simulator/homescreen/common/SBIconView.hpp"

namespace sim {

struct SBIconListView : UIView {
  std::vector<Ref<SBIconView>> iconViews;  ///< in their order

  /// Nil for an icon that has no view here.
  SBIconView* iconViewForIcon(id icon);

  /// Puts the views in rows of so many columns, and lays each out.
  void arrange(std::size_t columns, CGPoint first, CGSize pitch);
};

/// Defines the page and the dock, `SBDockIconListView`.
void defineSBIconListView();

}  // namespace sim
