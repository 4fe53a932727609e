#include "simulator/frameworks/preferences/PSControlTableCell.hpp"

namespace sim {

PSTableCell* PSControlTableCell::initWithStyle(NSInteger style, id reuseIdentifier, PSSpecifier* row) {
  auto* self = sendSuper<PSControlTableCell*>(this, "PSTableCell"_cls, "initWithStyle:reuseIdentifier:specifier:"_sel,
                                              style, reuseIdentifier, row);
  if (self == nullptr) return nullptr;
  self->control = Ref<UIControl>::adopt(send<UIControl*>(self, "newControl"_sel));
  self->control->addTarget(self, "controlChanged:"_sel, UIControlEvents::valueChanged);
  self->attach(self->control);
  return self;
}

void PSControlTableCell::refresh(PSSpecifier* row) {
  sendSuper(this, "PSTableCell"_cls, "refreshCellContentsWithSpecifier:"_sel, row);
  control->enabled = userInteractionEnabled;
  send(this, "setValue:"_sel, row->performGetter());
}

void PSControlTableCell::controlChanged(id) {
  const Ref<PSTableCell> self = this;
  send(specifier.get(), "performSetterWithValue:"_sel, send<id>(this, "controlValue"_sel));
}

// At the right edge, behind the name.
void PSControlTableCell::layoutSubviews() {
  constexpr CGFloat margin = 16;
  sendSuper(this, "PSTableCell"_cls, "layoutSubviews"_sel);
  const CGSize size = control->frame.size;
  control->frame.origin = {frame.size.width - margin - size.width, (frame.size.height - size.height) / 2};
  textLabel()->frame.size.width = control->frame.origin.x - 2 * margin;
}

void definePSControlTableCell() {
  using Self = PSControlTableCell;
  ClassBuilder<Self, PSTableCell>("PSControlTableCell", "PSTableCell")
      .method<&Self::initWithStyle>("initWithStyle:reuseIdentifier:specifier:")
      .getter<&Self::control>("control")
      .method<&Self::refresh>("refreshCellContentsWithSpecifier:")
      .method<&Self::controlChanged>("controlChanged:")
      .method<&Self::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
