#include "simulator/frameworks/uikit/UIWindow.hpp"

#include <algorithm>
#include <ranges>

const double UIWindowLevelNormal = 0;
const double UIWindowLevelAlert = 2000;

namespace sim {
namespace {

std::vector<UIWindow*>& windows() {
  // Windows go until the very end of the process.
  static auto* const living = new std::vector<UIWindow*>;
  return *living;
}

unsigned long nextTurn() {
  static unsigned long turns = 0;
  return ++turns;
}

}  // namespace

UIWindow::UIWindow() {
  hidden = true;
  windows().push_back(this);
}

UIWindow::~UIWindow() {
  std::erase(windows(), this);
  letGoOf(rootViewController);
}

void UIWindow::setHidden(bool hide) {
  if (hidden == hide) return;
  hidden = hide;
  if (hidden) return;
  shownAt = nextTurn();
  showRootView();
}

void UIWindow::makeKeyAndVisible() {
  send(this, "setHidden:"_sel, false);
  shownAt = madeKeyAt = nextTurn();
}

BOOL UIWindow::isKeyWindow() { return keyWindow() == this; }

void UIWindow::setRootViewController(UIViewController* controller) {
  if (controller == rootViewController.get()) return;
  if (rootViewController && send<BOOL>(rootViewController.get(), "isViewLoaded"_sel))
    send(send<id>(rootViewController.get(), "view"_sel), "removeFromSuperview"_sel);
  const Ref<UIViewController> previous = rootViewController;
  rootViewController = controller;
  letGoOf(previous);
  if (!hidden) showRootView();
}

// What a controller presents goes with it, unless another window shows it by now.
void UIWindow::letGoOf(UIViewController* controller) {
  if (controller == nullptr) return;
  const UIWindow* shownBy = controller->window();
  if (shownBy == nullptr || shownBy == this) leftScreen(controller->presentedViewController);
}

// A window takes in its root view once it is on the screen.
void UIWindow::showRootView() {
  UIViewController* root = rootViewController;
  auto* view = send<UIView*>(root, "view"_sel);
  if (view == nullptr || view->superview == this) return;
  send(root, "viewWillAppear:"_sel, false);
  send(view, "setFrame:"_sel, bounds());
  send(this, "addSubview:"_sel, view);
  send(root, "viewDidAppear:"_sel, false);
}

const std::vector<UIWindow*>& livingWindows() { return windows(); }

std::vector<UIWindow*> visibleWindows() {
  std::vector<UIWindow*> visible;
  std::copy_if(windows().begin(), windows().end(), std::back_inserter(visible),
               [](const UIWindow* window) { return !window->hidden; });
  std::sort(visible.begin(), visible.end(), [](const UIWindow* a, const UIWindow* b) {
    return std::pair(a->windowLevel, a->shownAt) < std::pair(b->windowLevel, b->shownAt);
  });
  return visible;
}

UIWindow* keyWindow() {
  UIWindow* key = nullptr;
  for (UIWindow* window : windows())
    if (!window->hidden && window->madeKeyAt > (key != nullptr ? key->madeKeyAt : 0)) key = window;
  return key;
}

UIView* viewAt(CGPoint onScreen) {
  const auto visible = visibleWindows();
  for (UIWindow* window : std::ranges::reverse_view(visible))
    if (auto* hit = send<UIView*>(window, "hitTest:withEvent:"_sel, onScreen - window->frame.origin, id{nullptr}))
      return hit;
  return nullptr;
}

void defineUIWindow() {
  ClassBuilder<UIWindow, UIView>("UIWindow", "UIView")
      .property<&UIWindow::windowLevel>("windowLevel")
      .method<&UIWindow::setHidden>("setHidden:")
      .method<&UIWindow::makeKeyAndVisible>("makeKeyAndVisible")
      .method<&UIWindow::isKeyWindow>("isKeyWindow")
      .getter<&UIWindow::rootViewController>("rootViewController")
      .method<&UIWindow::setRootViewController>("setRootViewController:")
      .add();
}

}  // namespace sim
