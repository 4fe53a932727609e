// The home screen's application object.
#pragma once

#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

struct SpringBoard : UIApplication {
  Ref<UIWindow> window;  ///< the home screen's own

  void applicationDidFinishLaunching(id application);
  /// As any application's, and what opens comes to the front.
  void openURL(id url, id options, const BlockLiteral* completion);
};

/// The application object; nil before it was started.
SpringBoard* springBoard();

void defineSpringBoard();

}  // namespace sim
