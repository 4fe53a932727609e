#pragma once

#include "simulator/frameworks/uikit/UILabel.hpp"

namespace sim {

/// What stands above or below a group of rows; it may be empty.
struct UITableViewHeaderFooterView : UIView {
  bool isFooter = false;
  Ref<UILabel> textLabel;  ///< nil without a text
};

/// A header or a footer in the view, below that height, as high as its text. Gives the height where it ends.
CGFloat addHeaderFooter(UIView* superview, CGFloat y, id text, bool isFooter);

void defineUITableViewHeaderFooterView();

}  // namespace sim
