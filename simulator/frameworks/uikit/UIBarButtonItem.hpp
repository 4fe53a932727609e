#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// A button in a navigation bar. It does not keep its target.
struct UIBarButtonItem : Object {
  Ref<objc_object> title;
  id target = nullptr;
  SEL action = nullptr;

  UIBarButtonItem* initWithTitle(id title, NSInteger style, id target, SEL action);
};

void defineUIBarButtonItem();

}  // namespace sim
