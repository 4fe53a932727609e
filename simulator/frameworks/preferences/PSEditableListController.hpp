#pragma once

#include "simulator/frameworks/preferences/PSListController.hpp"

namespace sim {

/// A list whose rows with a `deletionAction` can be swiped away, or removed after a tap on "Edit".
struct PSEditableListController : PSListController {
  void loadView();
  /// The Edit button: starts editing the list, or ends it.
  void editDoneTapped();
  void setEditing(bool editing);
  /// The row's `deletionAction`, a selector's text, goes to this controller with the row.
  void performDeletionAction(PSSpecifier* row);
  /// A person removes the row: after its action it goes from the list, if it is still there.
  void commitDeletion(PSSpecifier* row);
};

/// Whether a person can remove the row.
bool canBeDeleted(const PSListController* controller, PSSpecifier* row);

void definePSEditableListController();

}  // namespace sim
