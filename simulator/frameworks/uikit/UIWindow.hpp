#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"
#include "simulator/frameworks/uikit/UIViewController.hpp"

extern "C" {
extern const double UIWindowLevelNormal;
extern const double UIWindowLevelAlert;
}

namespace sim {

/// A window is on the screen while it lives and is not hidden: nothing but its owner keeps it. A new one is
/// hidden.
struct UIWindow : UIView {
  CGFloat windowLevel = 0;
  Ref<UIViewController> rootViewController;
  unsigned long shownAt = 0;    ///< windows of one level stand in the order they were shown
  unsigned long madeKeyAt = 0;  ///< 0 if it was never the key window

  UIWindow();
  ~UIWindow();
  void setHidden(bool hidden);
  void makeKeyAndVisible();
  BOOL isKeyWindow();
  void setRootViewController(UIViewController* controller);

 private:
  void showRootView();
  void letGoOf(UIViewController* controller);
};

/// Every window that lives, oldest first. None is kept alive by this list.
const std::vector<UIWindow*>& livingWindows();
/// The windows on the screen, bottom first.
std::vector<UIWindow*> visibleWindows();
/// The visible window that was last made key; nil if there is none.
UIWindow* keyWindow();
/// What a finger at that point of the screen comes down on: the frontmost view of the uppermost window that takes
/// it; nil when none does.
UIView* viewAt(CGPoint onScreen);

void defineUIWindow();

}  // namespace sim
