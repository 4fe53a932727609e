#include "simulator/homescreen/common/SBApplicationController.hpp"

#include "simulator/homescreen/common/shared_instance.hpp"

namespace sim {

SBApplication* SBApplicationController::applicationWithBundleIdentifier(id bundleIdentifier) {
  const auto entry = applications.find(text(bundleIdentifier));
  return entry != applications.end() ? entry->second.get() : nullptr;
}

SBApplicationController* SBApplicationController::shared() {
  return static_cast<SBApplicationController*>(sharedInstance("SBApplicationController"_cls));
}

SBApplication* SBApplicationController::update(const InstalledApplication& installed) {
  auto& application = applications[installed.bundleIdentifier];
  if (application == nullptr) application = make<SBApplication>("SBApplication"_cls);
  application->info = makeApplicationInfo(installed);
  return application;
}

void defineSBApplicationController() {
  ClassBuilder<SBApplicationController>("SBApplicationController", "NSObject")
      .classMethod<&sharedInstance>("sharedInstance")
      .method<&SBApplicationController::applicationWithBundleIdentifier>("applicationWithBundleIdentifier:")
      .add();
}

}  // namespace sim
