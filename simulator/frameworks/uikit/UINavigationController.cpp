#include "simulator/frameworks/uikit/UINavigationController.hpp"

#include <algorithm>

#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/runtime/exception.hpp"

namespace sim {

UINavigationController::~UINavigationController() {
  for (const auto& controller : viewControllers) controller->parentViewController = nullptr;
  if (bar) bar->controller = nullptr;
}

UINavigationController* UINavigationController::initWithRootViewController(UIViewController* root) {
  auto* self = send<UINavigationController*>(this, "init"_sel);
  if (self != nullptr) send(self, "pushViewController:animated:"_sel, root, false);
  return self;
}

void UINavigationController::loadView() {
  sendSuper(this, "UIViewController"_cls, "loadView"_sel);
  const CGFloat top = heldScreen().safeArea.top;
  bar = addView<UINavigationBar>(loadedView, "UINavigationBar"_cls,
                                 {{0, top}, {loadedView->frame.size.width, UINavigationBar::height}});
  bar->controller = this;
  if (!viewControllers.empty()) show(viewControllers.back(), nullptr, true, false);
}

UIViewController* UINavigationController::topViewController() {
  return viewControllers.empty() ? nullptr : viewControllers.back().get();
}

id UINavigationController::viewControllersArray() { return array({viewControllers.begin(), viewControllers.end()}); }

// What is seen changes at once; only its way takes time.
void UINavigationController::show(UIViewController* comes, UIViewController* goes, bool push, bool animated) {
  if (!loadedView) return;
  if (goes != nullptr) send(goes, "viewWillDisappear:"_sel, animated);
  auto* view = send<UIView*>(comes, "view"_sel);
  send(comes, "viewWillAppear:"_sel, animated);
  const CGFloat top = bar->frame.origin.y + UINavigationBar::height;
  const CGSize whole = loadedView->frame.size;
  send(view, "setFrame:"_sel, CGRect{{0, top}, {whole.width, whole.height - top}});
  if (goes != nullptr && goes->loadedView) send(goes->loadedView.get(), "removeFromSuperview"_sel);
  send(loadedView.get(), "addSubview:"_sel, view);
  send(bar.get(), "setNeedsLayout"_sel);
  const auto kind = push ? Transition::Kind::push : Transition::Kind::pop;
  beginTransition(kind, push ? comes : goes, animated,
                  [shown = Ref<UIViewController>(comes), gone = Ref<UIViewController>(goes), animated] {
                    send(gone.get(), "viewDidDisappear:"_sel, animated);
                    send(shown.get(), "viewDidAppear:"_sel, animated);
                  });
}

void UINavigationController::pushViewController(UIViewController* controller, bool animated) {
  if (controller == nullptr)
    raiseException("NSInvalidArgumentException",
                   "Application tried to push a nil view controller on target " + text(this) + ".");
  const Ref<UIViewController> pushed = controller;
  if (std::any_of(viewControllers.begin(), viewControllers.end(),
                  [&](const auto& each) { return each.get() == controller; }))
    raiseException("NSInvalidArgumentException",
                   text(this) + " is pushing the same view controller instance (" + text(controller) +
                       ") more than once which is not supported and is most likely an error in the application");
  const Ref<UIViewController> before = topViewController();
  viewControllers.push_back(pushed);
  controller->parentViewController = this;
  show(controller, before, true, animated);
}

UIViewController* UINavigationController::popViewController(bool animated) {
  if (viewControllers.size() < 2) return nullptr;
  const Ref<UIViewController> left = viewControllers.back();
  viewControllers.pop_back();
  show(viewControllers.back(), left, false, animated);
  left->parentViewController = nullptr;
  return autoreleased(left);
}

id UINavigationController::popToRootViewController(bool animated) {
  if (viewControllers.size() < 2) return array({});
  const std::vector<Ref<UIViewController>> left(viewControllers.begin() + 1, viewControllers.end());
  viewControllers.resize(1);
  show(viewControllers.front(), left.back(), false, animated);
  for (const auto& controller : left) controller->parentViewController = nullptr;
  return array({left.begin(), left.end()});
}

void defineUINavigationController() {
  using Self = UINavigationController;
  ClassBuilder<Self, UIViewController>("UINavigationController", "UIViewController")
      .method<&Self::initWithRootViewController>("initWithRootViewController:")
      .method<&Self::loadView>("loadView")
      .method<&Self::topViewController>("topViewController")
      .method<&Self::viewControllersArray>("viewControllers")
      .method<&Self::pushViewController>("pushViewController:animated:")
      .method<&Self::popViewController>("popViewControllerAnimated:")
      .method<&Self::popToRootViewController>("popToRootViewControllerAnimated:")
      .add();
}

}  // namespace sim
