// The settings application's framework, as far as the pane uses it. Main thread only.
#pragma once

#include "platform/UIKit.hpp"

enum class PSCellType : NSInteger { titleValue = 4, button = 13 };

/// A row of a list, or the head of a group of rows. Rows of a property list have its keys as their properties.
class PSSpecifier : public NSObject {
 public:
  static PSSpecifier* emptyGroup() { return send<PSSpecifier*>(cls(), "emptyGroupSpecifier"_sel); }
  /// A row that shows what `target` answers to `get`, a message with the row; nothing without one.
  static PSSpecifier* row(NSString* name, NSObject* target, SEL get, PSCellType cell) {
    return send<PSSpecifier*>(cls(), "preferenceSpecifierNamed:target:set:get:detail:cell:edit:"_sel, name, target,
                              SEL{nullptr}, get, Class{nullptr}, cell, Class{nullptr});
  }
  /// What a button sends its target, with itself.
  void setAction(SEL action) { send(this, "setButtonAction:"_sel, action); }
  /// Nil when it has none.
  NSObject* property(NSString* key) const { return send<NSObject*>(this, "propertyForKey:"_sel, key); }
  /// A group's text below its rows.
  void setFooter(NSString* text) { setProperty(text, "footerText"_ns); }
  void setProperty(NSObject* value, NSString* key) { send(this, "setProperty:forKey:"_sel, value, key); }

 private:
  static Class cls() { return "PSSpecifier"_cls; }
};

class PSListController : public UIViewController {
 public:
  static Class cls() { return "PSListController"_cls; }
  /// Where the list's rows are kept: each subclass fills it when they are first asked for. Nil when the framework has
  /// no such place.
  Slot<NSArray>* rows() {
    const Ivar variable = class_getInstanceVariable(cls(), "_specifiers");
    if (variable == nullptr) return nullptr;
    return reinterpret_cast<Slot<NSArray>*>(reinterpret_cast<char*>(this) + ivar_getOffset(variable));
  }
  /// The rows of the property list of that name in the controller's bundle. They get their values from `target`.
  NSArray* loadRows(NSString* name, NSObject* target) {
    return send<NSArray*>(this, "loadSpecifiersFromPlistName:target:"_sel, name, target);
  }
  /// Shows the row's value anew.
  void reloadRow(PSSpecifier* row) { send(this, "reloadSpecifier:"_sel, row); }
};

/// Its rows can be swiped away when they have the property "deletionAction": the selector of a message with the row.
class PSEditableListController : public PSListController {
 public:
  static Class cls() { return "PSEditableListController"_cls; }
};
