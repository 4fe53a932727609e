#pragma once

#include "simulator/frameworks/preferences/PSTableCell.hpp"
#include "simulator/frameworks/preferences/PSViewController.hpp"
#include "simulator/frameworks/uikit/UITableView.hpp"

namespace sim {

/// A list of settings: its specifiers as rows of a table. Subclasses say which by `specifiers`.
struct PSListController : PSViewController {
  Ref<objc_object> list;   ///< the instance variable `_specifiers`: a mutable array, nil until it is made
  Ref<UITableView> table;  ///< nil until the view is loaded

  void loadView();
  id specifiers() { return list; }
  void setSpecifiers(id specifiers) { list = specifiers; }
  /// That of the controller's class.
  id bundle();
  /// The rows that the bundle's property list of that name describes, in a new mutable array; its "title" becomes the
  /// controller's. Without such a property list there are none.
  id loadSpecifiers(id plistName, id target);
  /// Makes the table's rows anew, from the specifiers as they are.
  void reload();
  /// Forgets the specifiers, asks for them again, and shows those.
  void reloadSpecifiers();
  /// Shows one row as it is now.
  void reloadSpecifier(PSSpecifier* row);
  void reloadSpecifierID(id identifier);
  /// Nil when there is none.
  PSSpecifier* specifierForID(id identifier);
  /// Takes a row away. Nothing happens when it is none of the list's.
  void removeSpecifier(PSSpecifier* row, bool animated);
  /// Nil when it is not shown.
  PSTableCell* cachedCellForSpecifier(PSSpecifier* row);
  /// What a tap on the row leads to; nil for a row that leads nowhere.
  UIViewController* controllerForSpecifier(PSSpecifier* row);
  /// A person taps the row: its controller comes, or its action goes to its target.
  void didSelect(PSTableCell* cell);
};

void definePSListController();

}  // namespace sim
