// The old generation's power-down slider.
#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim::old {

struct SBPowerDownController : Object {
  void orderFront();
};

void defineSBPowerDownController();

}  // namespace sim::old
