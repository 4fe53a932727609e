#pragma once

#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

enum class UIAlertActionStyle : NSInteger { standard = 0, cancel = 1, destructive = 2 };

/// A button of a sheet or an alert.
struct UIAlertAction : Object {
  Ref<objc_object> title;
  UIAlertActionStyle style = UIAlertActionStyle::standard;
  BlockRef handler;  ///< called with the action

  static UIAlertAction* actionWithTitle(Class cls, id title, UIAlertActionStyle style, const BlockLiteral* handler);
};

void defineUIAlertAction();

}  // namespace sim
