#pragma once

#include "simulator/frameworks/preferences/PSListController.hpp"

namespace sim {

/// What a row of the kind "link list" leads to: its values, one of which is chosen by a tap and marked.
struct PSListItemsController : PSListController {
  id specifiers();
  /// A person taps one: the row that led here is set to it.
  void listItemSelected(PSSpecifier* item);
};

void definePSListItemsController();

}  // namespace sim
