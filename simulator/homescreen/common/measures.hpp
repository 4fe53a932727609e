// The measures of the home screen's views, in points, for each kind of device.
#pragma once

#include <cstddef>

#include "simulator/frameworks/uikit/UIScreen.hpp"

namespace sim {

/// Where the icons stand while the device is held one way.
struct Grid {
  std::size_t columns, rows;
  CGPoint first;     ///< the first icon's corner
  CGSize pitch;      ///< from one icon to the next
  CGFloat pageDots;  ///< their middle, from the top
  CGRect dock;
  CGPoint firstInDock;  ///< in the dock
};

struct Measures {
  HeldScreen screens[2];  ///< portrait, landscape
  Grid grids[2];
  CGFloat icon;             ///< a picture's side
  std::size_t dockColumns;  ///< the most icons that the dock holds
  CGFloat quickActionWidth, quickActionRow;
  CGFloat banner;  ///< a banner's height
};

/// Those of the running device.
const Measures& measures();
/// The grid as the device is held.
const Grid& grid();

}  // namespace sim
