#include "simulator/homescreen/old/SBIconController.hpp"

#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::old {

SBIconController* SBIconController::init() {
  iconModel = sim::iconModel();
  homescreenIconViewMap = make<SBIconViewMap>("SBIconViewMap"_cls);
  return this;
}

void defineSBIconController() {
  ClassBuilder<SBIconController>("SBIconController", "NSObject")
      .ivar("_iconModel", &SBIconController::iconModel)
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBIconController::init>("init")
      .getter<&SBIconController::homescreenIconViewMap>("homescreenIconViewMap")
      .method<&SBIconController::isEditing>("isEditing")
      .method<&SBIconController::addTouchedIconView>("_addTouchedIconView:")
      .method<&SBIconController::iconTouchMoved>("icon:touchMoved:")
      .method<&SBIconController::shouldActivate>(
          "appIconForceTouchController:shouldActivateApplicationShortcutItem:atIndex:forGestureRecognizer:")
      .add();
}

}  // namespace sim::old
