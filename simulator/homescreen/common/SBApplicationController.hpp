// All applications that the home screen knows.
#pragma once

#include <map>

#include "simulator/homescreen/common/SBApplication.hpp"

namespace sim {

struct SBApplicationController : Object {
  std::map<std::string, Ref<SBApplication>> applications;

  /// Nil for an unknown identifier.
  SBApplication* applicationWithBundleIdentifier(id bundleIdentifier);

  /// The one object of the class.
  static SBApplicationController* shared();
  /// Takes what is installed for the application, which is new or known already.
  SBApplication* update(const InstalledApplication& installed);
  void remove(const std::string& bundleIdentifier) { applications.erase(bundleIdentifier); }
};

void defineSBApplicationController();

}  // namespace sim
