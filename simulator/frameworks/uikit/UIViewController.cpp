#include "simulator/frameworks/uikit/UIViewController.hpp"

#include <cstdio>
#include <utility>

#include "platform/dispatch.hpp"
#include "simulator/frameworks/foundation/copying.hpp"
#include "simulator/frameworks/uikit/UIAlertController.hpp"
#include "simulator/frameworks/uikit/UINavigationController.hpp"
#include "simulator/frameworks/uikit/UINavigationItem.hpp"
#include "simulator/frameworks/uikit/UIPresentation.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/runtime/exception.hpp"

namespace sim {
namespace {

// Nobody presents it from here on, and whoever did may have gone before.
void leave(UIViewController* controller) {
  UIViewController* presenter = std::exchange(controller->presentingViewController, nullptr);
  if (presenter != nullptr) presenter->presentedViewController = nullptr;
  removePresented(controller);
}

}  // namespace

UIViewController::~UIViewController() {
  if (ownNavigationItem) ownNavigationItem->controller = nullptr;
  if (!presentedViewController) return;
  presentedViewController->presentingViewController = nullptr;
  removePresented(presentedViewController);
  leftScreen(presentedViewController);
}

UIView* UIViewController::view() {
  if (!loadedView) {
    send(this, "loadView"_sel);
    send(this, "viewDidLoad"_sel);
  }
  return loadedView;
}

BOOL UIViewController::isViewLoaded() { return loadedView.get() != nullptr; }

void UIViewController::loadView() {
  const auto made =
      Ref<UIView>::adopt(send<UIView*>(send<id>("UIView"_cls, "alloc"_sel), "initWithFrame:"_sel, screenBounds()));
  send(this, "setView:"_sel, made.get());
}

id UIViewController::popoverPresentationController() { return nullptr; }

void UIViewController::setTitle(id changed) {
  title = copied(changed);
  if (UINavigationController* navigation = navigationController()) send(navigation->bar.get(), "setNeedsLayout"_sel);
}

UINavigationController* UIViewController::navigationController() {
  UIViewController* outer = parentViewController;
  while (outer != nullptr && !isKind(outer, "UINavigationController"_cls)) outer = outer->parentViewController;
  return static_cast<UINavigationController*>(outer);
}

UINavigationItem* UIViewController::navigationItem() {
  if (!ownNavigationItem) {
    ownNavigationItem = make<UINavigationItem>("UINavigationItem"_cls);
    ownNavigationItem->controller = this;
  }
  return ownNavigationItem;
}

namespace {

/// Whether a window shows it. Only its address is looked at.
bool isShown(const UIViewController* sought) {
  for (const UIWindow* window : livingWindows())
    for (const UIViewController* shown = window->rootViewController; shown != nullptr;
         shown = shown->presentedViewController)
      if (shown == sought) return true;
  return false;
}

// A handler may hold its alert: what has left the screen lets go of them, unless whoever heard of that has presented it
// again. It is not held for that itself.
void forgetHandlersNextTurn(UIViewController* controller) {
  for (; controller != nullptr; controller = controller->presentedViewController) {
    if (!isKind(controller, "UIAlertController"_cls)) continue;
    dispatch::onNextTurn([left = controller, actions = static_cast<UIAlertController*>(controller)->actions] {
      if (isShown(left)) return;
      for (UIAlertAction* action : actions) action->handler = {};
    });
  }
}

}  // namespace

void UIViewController::presentViewController(UIViewController* controller, bool animated,
                                             const BlockLiteral* completion) {
  if (controller == nullptr)
    raiseException("NSInvalidArgumentException",
                   "Application tried to present a nil modal view controller on target " + text(this) + ".");
  if (controller->presentingViewController != nullptr)
    raiseException("NSInvalidArgumentException", "Application tried to present modally a view controller " +
                                                     text(controller) + " that is already being presented by " +
                                                     text(controller->presentingViewController) + ".");
  if (parentViewController != nullptr)
    return send(parentViewController, "presentViewController:animated:completion:"_sel, controller, animated,
                completion);
  const char* obstacle = window() == nullptr       ? "whose view is not in the window hierarchy"
                         : presentedViewController ? "which is already presenting"
                                                   : nullptr;
  if (obstacle != nullptr) {
    std::fprintf(stderr, "Attempt to present %s on %s %s!\n", text(controller).c_str(), text(this).c_str(), obstacle);
    return;
  }
  requirePopoverAnchor(controller, this);

  presentedViewController = controller;
  controller->presentingViewController = this;
  send(controller, "viewWillAppear:"_sel, animated);
  showPresented(controller);
  beginTransition(Transition::Kind::presentation, controller, animated,
                  [shown = Ref<UIViewController>(controller), animated, block = BlockRef(completion)] {
                    send(shown.get(), "viewDidAppear:"_sel, animated);
                    block();
                  });
}

BOOL UIViewController::isBeingPresented() {
  const Transition* transition = transitionOf(this);
  return transition != nullptr && transition->kind == Transition::Kind::presentation;
}

BOOL UIViewController::isBeingDismissed() {
  const Transition* transition = transitionOf(this);
  return transition != nullptr && transition->kind == Transition::Kind::dismissal;
}

void UIViewController::dismissViewController(bool animated, const BlockLiteral* completion) {
  if (!presentedViewController) {
    UIViewController* outer = parentViewController != nullptr ? parentViewController : presentingViewController;
    send(outer, "dismissViewControllerAnimated:completion:"_sel, animated, completion);
    return;
  }
  const Ref<UIViewController> leaving = presentedViewController;
  if (transitionOf(leaving) != nullptr) {
    std::fprintf(stderr, "Attempt to dismiss from %s while a presentation or dismissal is in progress!\n",
                 text(this).c_str());
    return;
  }
  send(leaving.get(), "viewWillDisappear:"_sel, animated);
  if (!animated) leave(leaving);
  beginTransition(Transition::Kind::dismissal, leaving, animated,
                  [leaving = Ref<UIViewController>(leaving), animated, block = BlockRef(completion)]() mutable {
                    leave(leaving);
                    // Even if the following raises.
                    forgetHandlersNextTurn(leaving);
                    send(leaving.get(), "viewDidDisappear:"_sel, animated);
                    // What nobody else holds is gone by now.
                    leaving = nullptr;
                    block();
                  });
}

UIWindow* UIViewController::window() {
  if (presentingViewController != nullptr) return presentingViewController->window();
  return loadedView ? loadedView->window() : nullptr;
}

void leftScreen(UIViewController* controller) {
  std::vector<Ref<UIAlertController>> alerts;
  for (; controller != nullptr; controller = controller->presentedViewController)
    if (isKind(controller, "UIAlertController"_cls)) alerts.emplace_back(static_cast<UIAlertController*>(controller));
  for (UIAlertController* alert : alerts) alert->forgetHandlers();
}

void defineUIViewController() {
  ClassBuilder<UIViewController>("UIViewController", "NSObject")
      .method<&UIViewController::view>("view")
      .method<&UIViewController::setView>("setView:")
      .method<&UIViewController::isViewLoaded>("isViewLoaded")
      .method<&UIViewController::loadView>("loadView")
      .method<&UIViewController::viewDidLoad>("viewDidLoad")
      .method<&UIViewController::viewWillAppear>("viewWillAppear:")
      .method<&UIViewController::viewDidAppear>("viewDidAppear:")
      .method<&UIViewController::viewWillDisappear>("viewWillDisappear:")
      .method<&UIViewController::viewDidDisappear>("viewDidDisappear:")
      .getter<&UIViewController::title>("title")
      .method<&UIViewController::setTitle>("setTitle:")
      .getter<&UIViewController::parentViewController>("parentViewController")
      .method<&UIViewController::navigationController>("navigationController")
      .method<&UIViewController::navigationItem>("navigationItem")
      .getter<&UIViewController::presentedViewController>("presentedViewController")
      .getter<&UIViewController::presentingViewController>("presentingViewController")
      .method<&UIViewController::popoverPresentationController>("popoverPresentationController")
      .method<&UIViewController::isBeingPresented>("isBeingPresented")
      .method<&UIViewController::isBeingDismissed>("isBeingDismissed")
      .method<&UIViewController::presentViewController>("presentViewController:animated:completion:")
      .method<&UIViewController::dismissViewController>("dismissViewControllerAnimated:completion:")
      .add();
}

}  // namespace sim
