// The page of the home screen that the icons' views stand on.
#pragma once

#include <map>

#include "simulator/homescreen/common/SBIconView.hpp"

namespace sim {

struct SBIconListView : UIView {
  std::map<id, Ref<SBIconView>> iconViews;

  /// Nil for an icon that has no view on this page.
  SBIconView* iconViewForIcon(id icon);

  /// Makes the icon's view and puts it on the page.
  void show(SBIcon* icon);
  void remove(SBIcon* icon);
  /// Puts the views in rows in the order of the icons, and lays each out.
  void arrange(const std::vector<Ref<SBIcon>>& icons);
};

void defineSBIconListView();

}  // namespace sim
