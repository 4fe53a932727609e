#include "simulator/frameworks/preferences/PSSliderTableCell.hpp"

#include <cstdio>

namespace sim {

UISlider* PSSliderTableCell::newControl() {
  auto* slider = send<UISlider*>(send<id>("UISlider"_cls, "alloc"_sel), "initWithFrame:"_sel, CGRect{});
  if (id least = specifier->propertyForKey(ns("min")); least != nullptr)
    send(slider, "setMinimumValue:"_sel, send<float>(least, "floatValue"_sel));
  if (id most = specifier->propertyForKey(ns("max")); most != nullptr)
    send(slider, "setMaximumValue:"_sel, send<float>(most, "floatValue"_sel));
  return slider;
}

id PSSliderTableCell::controlValue() {
  return send<id>("NSNumber"_cls, "numberWithFloat:"_sel, send<float>(control.get(), "value"_sel));
}

void PSSliderTableCell::setValue(id value) {
  send(control.get(), "setValue:"_sel, send<float>(value, "floatValue"_sel));
  showValue();
}

void PSSliderTableCell::controlChanged(id changed) {
  showValue();
  sendSuper(this, "PSControlTableCell"_cls, "controlChanged:"_sel, changed);
}

void PSSliderTableCell::showValue() {
  id shown = specifier->propertyForKey(ns("showValue"));
  if (shown == nullptr || !send<BOOL>(shown, "boolValue"_sel)) return;
  char number[32];
  std::snprintf(number, sizeof number, "%.2f", static_cast<double>(send<float>(control.get(), "value"_sel)));
  detailTextLabel()->setText(ns(number));
}

void PSSliderTableCell::layoutSubviews() {
  constexpr CGFloat margin = 16, number = 60;
  textLabel()->hidden = true;
  const CGFloat right = ownDetailTextLabel ? number : 0;
  const CGSize size{frame.size.width - 2 * margin - right, UISlider::height};
  control->frame = {{margin, (frame.size.height - size.height) / 2}, size};
  if (ownDetailTextLabel)
    ownDetailTextLabel->frame = {{frame.size.width - margin - number, 0}, {number, frame.size.height}};
}

void definePSSliderTableCell() {
  using Self = PSSliderTableCell;
  ClassBuilder<Self, PSControlTableCell>("PSSliderTableCell", "PSControlTableCell")
      .method<&Self::newControl>("newControl")
      .method<&Self::controlValue>("controlValue")
      .method<&Self::setValue>("setValue:")
      .method<&Self::controlChanged>("controlChanged:")
      .method<&Self::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
