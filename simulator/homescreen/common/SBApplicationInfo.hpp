// Where an application lives on the device.
#pragma once

#include "simulator/frameworks/launch_services/installed.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct SBApplicationInfo : Object {
  InstalledApplication application;

  id bundleIdentifier() { return ns(application.bundleIdentifier); }
  id displayName() { return ns(application.name); }
  /// The text of the bundle folder's URL; nil while the application is not installed.
  id installInstanceID();
  /// Nil for an application without data.
  id dataContainerURL();
};

/// Owned by the caller.
Ref<SBApplicationInfo> makeApplicationInfo(const InstalledApplication& application);

void defineSBApplicationInfo();

}  // namespace sim
