#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// What the system tells any process about an application, installed or not.
struct LSApplicationProxy : Object {
  Ref<objc_object> localizedName;  ///< nil for one that is not installed

  /// Nil for nil.
  static LSApplicationProxy* applicationProxyForIdentifier(Class cls, id identifier);
};

void defineLSApplicationProxy();

}  // namespace sim
