#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"
#include "simulator/runtime/blocks.hpp"

namespace sim {

struct UINavigationController;
struct UINavigationItem;

/// A controller keeps its view and what it presents.
struct UIViewController : Object {
  Ref<UIView> loadedView;  ///< nil until the view is asked for
  Ref<objc_object> title;  ///< nil for none
  Ref<UIViewController> presentedViewController;
  UIViewController* presentingViewController = nullptr;
  Ref<UIView> transitionView;                        ///< while it is presented: what its view stands in
  UIViewController* parentViewController = nullptr;  ///< the controller that it stands in; not kept
  Ref<UINavigationItem> ownNavigationItem;           ///< made when first asked for

  ~UIViewController();
  /// Loads the view if need be.
  UIView* view();
  void setView(UIView* view) { loadedView = view; }
  BOOL isViewLoaded();
  /// Makes a view as large as the screen.
  void loadView();
  void viewDidLoad() {}
  void viewWillAppear(bool) {}
  void viewDidAppear(bool) {}
  void viewWillDisappear(bool) {}
  void viewDidDisappear(bool) {}
  void setTitle(id title);
  /// The nearest navigation controller that it stands in; nil for none.
  UINavigationController* navigationController();
  /// What a navigation bar shows of it, besides its title.
  UINavigationItem* navigationItem();
  /// Nil, but for controllers that are shown in a popover.
  id popoverPresentationController();
  /// Presents modally, from the outermost controller that this one stands in; the completion runs when the controller
  /// has come, which takes its time when it is animated. As on the platform, a controller that is in no window, or
  /// presents something already, presents nothing and says so on the error output.
  void presentViewController(UIViewController* controller, bool animated, const BlockLiteral* completion);
  BOOL isBeingPresented();
  BOOL isBeingDismissed();
  /// Takes away what this controller presents, or itself if it presents nothing; the completion runs when that has
  /// gone. While what is to go still comes, or goes already, nothing happens but a word on the error output.
  void dismissViewController(bool animated, const BlockLiteral* completion);

  /// The window that shows this controller; nil if none does.
  UIWindow* window();
};

/// A controller and what it presents have left the screen: alerts among them let go of their buttons' handlers, which
/// can be tapped no more. Nil has no effect.
void leftScreen(UIViewController* controller);

void defineUIViewController();

}  // namespace sim
