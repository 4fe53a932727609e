#pragma once

#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UINavigationController.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

/// The settings application.
struct PreferencesAppController : UIApplication {
  Ref<UIWindow> window;
  Ref<UINavigationController> navigation;

  void applicationDidFinishLaunching(id application);
};

/// The one of this process.
PreferencesAppController* settingsApplication();

void definePreferencesAppController();

}  // namespace sim
