#pragma once

#include <vector>

#include "simulator/frameworks/uikit/UINavigationBar.hpp"
#include "simulator/frameworks/uikit/UIViewController.hpp"

namespace sim {

/// Controllers one after the other, the last of which is seen below a bar.
struct UINavigationController : UIViewController {
  std::vector<Ref<UIViewController>> viewControllers;  ///< the first has no way back
  Ref<UINavigationBar> bar;                            ///< nil until the view is loaded

  ~UINavigationController();
  UINavigationController* initWithRootViewController(UIViewController* root);
  void loadView();
  UIViewController* topViewController();
  id viewControllersArray();
  /// Raises for nil, and for a controller that is on the way already. It has come after 0.35 seconds.
  void pushViewController(UIViewController* controller, bool animated);
  /// Goes back one step and gives the controller left; nil at the first, which stays.
  UIViewController* popViewController(bool animated);
  /// Goes back to the first, and gives those left.
  id popToRootViewController(bool animated);

 private:
  void show(UIViewController* comes, UIViewController* goes, bool push, bool animated);
};

void defineUINavigationController();

}  // namespace sim
