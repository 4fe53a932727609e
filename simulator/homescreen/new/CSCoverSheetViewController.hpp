// The new generation's cover sheet.
#pragma once

#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim::latest {

struct CSCoverSheetViewController : UIViewController {
  void viewWillAppear(BOOL animated);
};

void defineCSCoverSheetViewController();

}  // namespace sim::latest
