#include "simulator/homescreen/new/CSCoverSheetViewController.hpp"

#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim::recent {

void CSCoverSheetViewController::viewWillAppear(RawBool animated) {
  homeState().passedOn.push_back({"viewWillAppear:", {byteOf(animated)}});
  sendSuper(this, "UIViewController"_cls, "viewWillAppear:"_sel, animated);
}

void defineCSCoverSheetViewController() {
  ClassBuilder<CSCoverSheetViewController, UIViewController>("CSCoverSheetViewController", "UIViewController")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&CSCoverSheetViewController::viewWillAppear>("viewWillAppear:")
      .add();
}

}  // namespace sim::recent
