// The new generation's cover sheet.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim::recent {

struct CSCoverSheetViewController : UIViewController {
  void viewWillAppear(RawBool animated);
};

void defineCSCoverSheetViewController();

}  // namespace sim::recent
