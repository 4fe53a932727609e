#include "simulator/frameworks/preferences/PSSegmentTableCell.hpp"

namespace sim {

// A value without a title of its own is shown as it is.
UISegmentedControl* PSSegmentTableCell::newControl() {
  std::vector<id> shown;
  for (id value : elements(specifier->values)) {
    id title = send<id>(specifier->titles.get(), "objectForKey:"_sel, value);
    shown.push_back(title != nullptr ? title : ns(text(value)));
  }
  return send<UISegmentedControl*>(send<id>("UISegmentedControl"_cls, "alloc"_sel), "initWithItems:"_sel, array(shown));
}

id PSSegmentTableCell::controlValue() {
  const auto index = send<NSInteger>(control.get(), "selectedSegmentIndex"_sel);
  return index == UISegmentedControl::none ? nullptr : elements(specifier->values)[static_cast<std::size_t>(index)];
}

// Nothing is selected for a value that cannot be chosen.
void PSSegmentTableCell::setValue(id value) {
  NSInteger selected = UISegmentedControl::none, index = 0;
  for (id each : elements(specifier->values)) {
    if (send<BOOL>(each, "isEqual:"_sel, value)) selected = index;
    ++index;
  }
  send(control.get(), "setSelectedSegmentIndex:"_sel, selected);
}

void PSSegmentTableCell::layoutSubviews() {
  textLabel()->hidden = true;
  const CGFloat height = UISegmentedControl::height;
  send(control.get(), "setFrame:"_sel, CGRect{{0, (frame.size.height - height) / 2}, {frame.size.width, height}});
}

void definePSSegmentTableCell() {
  using Self = PSSegmentTableCell;
  ClassBuilder<Self, PSControlTableCell>("PSSegmentTableCell", "PSControlTableCell")
      .method<&Self::newControl>("newControl")
      .method<&Self::controlValue>("controlValue")
      .method<&Self::setValue>("setValue:")
      .method<&Self::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
