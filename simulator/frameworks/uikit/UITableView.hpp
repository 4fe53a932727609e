#pragma once

#include "simulator/frameworks/uikit/UIScrollView.hpp"

namespace sim {

/// A list of rows in groups, which scrolls. Whoever owns it puts the rows into it.
struct UITableView : UIScrollView {
  bool editing = false;  ///< rows that may be removed show so
};

void defineUITableView();

}  // namespace sim
