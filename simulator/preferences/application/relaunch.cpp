#include "simulator/preferences/application/relaunch.hpp"

#include "simulator/control/agent/driver.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {
namespace {

struct SBSRelaunchAction : Object {
  static id actionWithReason(Class cls, id, NSUInteger, id) { return autoreleased(make<SBSRelaunchAction>(cls)); }
};

/// The part of the system service that the settings application uses.
struct FBSSystemService : Object {
  // The home screen ends once the phone has heard of it, not before this returns.
  void sendActions(id actions, const void*) {
    for (id action : elements(send<id>(actions, "allObjects"_sel)))
      if (isKind(action, "SBSRelaunchAction"_cls)) driver::tell({{"push", "relaunch"}});
  }
};

}  // namespace

void defineRelaunch() {
  ClassBuilder<SBSRelaunchAction>("SBSRelaunchAction", "NSObject")
      .classMethod<&SBSRelaunchAction::actionWithReason>("actionWithReason:options:targetURL:")
      .add();
  ClassBuilder<FBSSystemService>("FBSSystemService", "NSObject")
      .classMethod<&sharedInstance>("sharedService")
      .method<&FBSSystemService::sendActions>("sendActions:withResult:")
      .add();
}

}  // namespace sim
