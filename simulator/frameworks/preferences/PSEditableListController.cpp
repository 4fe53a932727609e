#include "simulator/frameworks/preferences/PSEditableListController.hpp"

#include "simulator/frameworks/uikit/UINavigationItem.hpp"

namespace sim {
namespace {

id deletionActionOf(PSSpecifier* row) { return row->propertyForKey(ns("deletionAction")); }

}  // namespace

void PSEditableListController::loadView() {
  sendSuper(this, "PSListController"_cls, "loadView"_sel);
  setEditing(false);
}

void PSEditableListController::editDoneTapped() { setEditing(!table->editing); }

void PSEditableListController::setEditing(bool editing) {
  table->editing = editing;
  const auto button = Ref<UIBarButtonItem>::adopt(
      send<UIBarButtonItem*>(send<id>("UIBarButtonItem"_cls, "alloc"_sel), "initWithTitle:style:target:action:"_sel,
                             ns(editing ? "Done" : "Edit"), NSInteger{0}, static_cast<id>(this), "editDoneTapped"_sel));
  send(navigationItem(), "setRightBarButtonItem:"_sel, button.get());
}

void PSEditableListController::performDeletionAction(PSSpecifier* row) {
  if (id action = deletionActionOf(row); action != nullptr)
    send(this, sel_registerName(text(action).c_str()), static_cast<id>(row));
}

void PSEditableListController::commitDeletion(PSSpecifier* row) {
  const Ref<PSSpecifier> kept = row;
  send(this, "performDeletionActionForSpecifier:"_sel, row);
  send(this, "removeSpecifier:animated:"_sel, row, true);
}

bool canBeDeleted(const PSListController* controller, PSSpecifier* row) {
  return isKind(const_cast<PSListController*>(controller), "PSEditableListController"_cls) &&
         deletionActionOf(row) != nullptr;
}

void definePSEditableListController() {
  using Self = PSEditableListController;
  ClassBuilder<Self, PSListController>("PSEditableListController", "PSListController")
      .method<&Self::loadView>("loadView")
      .method<&Self::editDoneTapped>("editDoneTapped")
      .method<&Self::performDeletionAction>("performDeletionActionForSpecifier:")
      .add();
}

}  // namespace sim
