#include "simulator/homescreen/new/SBPowerDownViewController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::recent {

void SBPowerDownViewController::powerDownViewWillAnimateIn(UIView* powerDownView) {
  send(powerDownView, "setHidden:"_sel, BOOL{false});
  homeState().poweringDown = true;
}

void defineSBPowerDownViewController() {
  ClassBuilder<SBPowerDownViewController, UIViewController>("SBPowerDownViewController", "UIViewController")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBPowerDownViewController::powerDownViewWillAnimateIn>("powerDownViewWillAnimateIn:")
      .add();
}

}  // namespace sim::recent
