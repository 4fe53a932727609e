#include "simulator/frameworks/preferences/PSEditableTableCell.hpp"

namespace sim {

PSTableCell* PSEditableTableCell::initWithStyle(NSInteger style, id reuseIdentifier, PSSpecifier* row) {
  auto* self = sendSuper<PSEditableTableCell*>(this, "PSTableCell"_cls, "initWithStyle:reuseIdentifier:specifier:"_sel,
                                               style, reuseIdentifier, row);
  if (self == nullptr) return nullptr;
  self->textField = make<UITextField>("UITextField"_cls);
  self->textField->setPlaceholder(row->propertyForKey(ns("placeholder")));
  self->attach(self->textField);
  return self;
}

void PSEditableTableCell::refresh(PSSpecifier* row) {
  sendSuper(this, "PSTableCell"_cls, "refreshCellContentsWithSpecifier:"_sel, row);
  id value = row->performGetter();
  textField->setText(value != nullptr ? ns(text(value)) : nullptr);
}

void PSEditableTableCell::layoutSubviews() {
  sendSuper(this, "PSTableCell"_cls, "layoutSubviews"_sel);
  UILabel* name = textLabel();
  if (name->text) name->frame.size.width /= 2;
  else name->frame.size.width = 0;
  const CGFloat left = name->frame.origin.x + name->frame.size.width;
  textField->frame = {{left, 0}, {frame.size.width - name->frame.origin.x - left, frame.size.height}};
}

void PSEditableTableCell::endEditing() {
  const Ref<PSTableCell> self = this;
  send<BOOL>(textField.get(), "resignFirstResponder"_sel);
  send(specifier.get(), "performSetterWithValue:"_sel, send<id>(textField.get(), "text"_sel));
}

void definePSEditableTableCell() {
  using Self = PSEditableTableCell;
  ClassBuilder<Self, PSTableCell>("PSEditableTableCell", "PSTableCell")
      .method<&Self::initWithStyle>("initWithStyle:reuseIdentifier:specifier:")
      .getter<&Self::textField>("textField")
      .method<&Self::refresh>("refreshCellContentsWithSpecifier:")
      .method<&Self::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
