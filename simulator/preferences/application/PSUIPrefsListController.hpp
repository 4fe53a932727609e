#pragma once

#include "simulator/frameworks/preferences/PSListController.hpp"

namespace sim {

/// The first list of the settings application: a row for each pane that the preference loader finds.
struct PSUIPrefsListController : PSListController {
  id specifiers();
  /// Maps the row's bundle; its principal class is what the row leads to. When there is none the row says why, and
  /// leads nowhere.
  void lazyLoadBundle(PSSpecifier* row);
};

void definePSUIPrefsListController();

}  // namespace sim
