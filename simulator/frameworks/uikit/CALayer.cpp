#include "simulator/frameworks/uikit/CALayer.hpp"

namespace sim {

void defineCALayer() {
  ClassBuilder<CALayer>("CALayer", "NSObject").property<&CALayer::cornerRadius>("cornerRadius").add();
}

}  // namespace sim
