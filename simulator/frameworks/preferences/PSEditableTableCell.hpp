#pragma once

#include "simulator/frameworks/preferences/PSTableCell.hpp"
#include "simulator/frameworks/uikit/UITextField.hpp"

namespace sim {

/// A row with a text field behind its name.
struct PSEditableTableCell : PSTableCell {
  Ref<UITextField> textField;

  PSTableCell* initWithStyle(NSInteger style, id reuseIdentifier, PSSpecifier* row);
  void refresh(PSSpecifier* row);
  void layoutSubviews();
  /// A person has ended editing: the row's target is told.
  void endEditing();
};

void definePSEditableTableCell();

}  // namespace sim
