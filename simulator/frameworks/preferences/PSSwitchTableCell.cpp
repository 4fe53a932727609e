#include "simulator/frameworks/preferences/PSSwitchTableCell.hpp"

namespace sim {

UISwitch* PSSwitchTableCell::newControl() {
  return send<UISwitch*>(send<id>("UISwitch"_cls, "alloc"_sel), "initWithFrame:"_sel, CGRect{});
}

id PSSwitchTableCell::controlValue() {
  return send<id>("NSNumber"_cls, "numberWithBool:"_sel, send<BOOL>(control.get(), "isOn"_sel));
}

void PSSwitchTableCell::setValue(id value) { send(control.get(), "setOn:"_sel, send<BOOL>(value, "boolValue"_sel)); }

void definePSSwitchTableCell() {
  using Self = PSSwitchTableCell;
  ClassBuilder<Self, PSControlTableCell>("PSSwitchTableCell", "PSControlTableCell")
      .method<&Self::newControl>("newControl")
      .method<&Self::controlValue>("controlValue")
      .method<&Self::setValue>("setValue:")
      .add();
}

}  // namespace sim
