#pragma once

#include "simulator/frameworks/uikit/UILabel.hpp"

namespace sim {

/// A row of a table.
struct UITableViewCell : UIView {
  /// A row's, unless it says otherwise.
  static constexpr CGFloat height = 44;
  Ref<UILabel> ownTextLabel, ownDetailTextLabel;  ///< made when first asked for

  UILabel* textLabel();
  UILabel* detailTextLabel();
};

void defineUITableViewCell();

}  // namespace sim
