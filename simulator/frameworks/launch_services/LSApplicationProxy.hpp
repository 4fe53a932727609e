// What every process may know of an application.
#pragma once

#include "simulator/homescreen/common/installed.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct LSApplicationProxy : Object {
  std::optional<InstalledApplication> application;  ///< none when it is not installed

  /// Never nil: an application that is not installed has a proxy that knows nothing more of it.
  static LSApplicationProxy* applicationProxyForIdentifier(Class cls, id bundleIdentifier);
  /// Nil when it is not installed.
  id localizedName() { return application ? ns(application->name) : nullptr; }
};

void defineLSApplicationProxy();

}  // namespace sim
