#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// What a row is, by the platform's numbers.
enum class PSCellType : NSInteger {
  group = 0,
  link = 1,
  linkList = 2,
  listItem = 3,
  titleValue = 4,
  slider = 5,
  toggle = 6,
  staticText = 7,
  editText = 8,
  segment = 9,
  button = 13,
};

/// One row of a list, or the head of a group of rows. It does not keep its target.
struct PSSpecifier : Object {
  id target = nullptr;
  SEL getter = nullptr, setter = nullptr;
  SEL buttonAction = nullptr;          ///< goes to the target when the row is tapped
  SEL controllerLoadAction = nullptr;  ///< goes to the list's controller before `detailControllerClass` is asked for
  Class detailControllerClass = nullptr;
  PSCellType cellType = PSCellType::group;
  Ref<objc_object> name;        ///< nil for none
  Ref<objc_object> properties;  ///< a mutable dictionary
  Ref<objc_object> values;      ///< what may be chosen; nil for none
  Ref<objc_object> titles;      ///< their titles by value; nil for none

  PSSpecifier* init();
  static PSSpecifier* preferenceSpecifierNamed(Class cls, id name, id target, SEL set, SEL get, Class detail,
                                               PSCellType cell, Class edit);
  static PSSpecifier* emptyGroupSpecifier(Class cls);
  static PSSpecifier* groupSpecifierWithName(Class cls, id name);
  /// The row that an item of a property list describes. It may name its own `set` and `get`.
  static PSSpecifier* fromItem(id item, id target);

  void setName(id name);
  id propertyForKey(id key);
  /// Raises for nil.
  void setProperty(id value, id key);
  /// Its "id", else its "key", else its name.
  id identifier();
  void setIdentifier(id identifier);
  /// The titles belong to the values one by one.
  void setValues(id values, id titles);
  /// The value that the target gives for it; nil without a getter.
  id performGetter();
  /// Tells the target of another value; nothing happens without a setter.
  void performSetter(id value);
};

void definePSSpecifier();

}  // namespace sim
