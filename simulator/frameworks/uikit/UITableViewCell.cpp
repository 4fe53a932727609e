#include "simulator/frameworks/uikit/UITableViewCell.hpp"

namespace sim {
namespace {

UILabel* labelIn(Ref<UILabel>& label, UIView* cell, CGFloat fontSize, NSInteger alignment) {
  if (!label) label = addLabel(cell, {}, nullptr, {.fontSize = fontSize, .alignment = alignment});
  return label;
}

}  // namespace

UILabel* UITableViewCell::textLabel() { return labelIn(ownTextLabel, this, 17, 0); }
UILabel* UITableViewCell::detailTextLabel() { return labelIn(ownDetailTextLabel, this, 17, 2); }

void defineUITableViewCell() {
  ClassBuilder<UITableViewCell, UIView>("UITableViewCell", "UIView")
      .method<&UITableViewCell::textLabel>("textLabel")
      .method<&UITableViewCell::detailTextLabel>("detailTextLabel")
      .add();
}

}  // namespace sim
